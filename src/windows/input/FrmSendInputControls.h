// Identifiers of the dialog FrmSendInput.
#pragma once

#define IDD_FRM_SEND_INPUT 5560
#define LblInputScript 5561
#define TxtInputScript 5562
#define LblInputSteps 5563
#define LstInputSteps 5564
#define LblInputDelay 5565
#define TxtInputDelay 5566
#define LblInputDelayUnit 5567
#define LblInputPause 5568
#define TxtInputPause 5569
#define LblInputPauseUnit 5570
#define LblInputPointer 5571
#define CmdCheckInput 5572
#define CmdPlayInput 5573
#define CmdInputToDocument 5574
#define LblInputRemark 5575
