// Identifiers of the interrupt window.
#pragma once

#define IDD_FRM_INTERRUPT 3100
#define CmdStop 3101
#define CmdGoOn 3102
#define LblInterrupt 3103
