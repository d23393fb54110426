// Identifiers of the key dialog.
#pragma once

#define IDD_FRM_SECRET 3700
#define Text1 3701
#define Check1 3702
#define Command1 3703
#define Command2 3704
#define LblKey 3705
#define Check2 3706
#define Text2 3707
#define LblRepeat 3708
