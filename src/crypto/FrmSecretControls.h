// Identifiers of the key dialog.
#pragma once

#define IDD_FRM_SECRET 3700
#define Text1 3701
#define Check1 3702
#define Command1 3703
#define Command2 3704
#define LblKey 3705
