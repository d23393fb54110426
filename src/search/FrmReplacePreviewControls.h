// Identifiers of the dialog FrmReplacePreview.
#pragma once

#define IDD_FRM_REPLACE_PREVIEW 4150
#define LblFolder 4151
#define LstPlaces 4152
#define LblCount 4153
#define CmdTickAll 4154
#define CmdTickNone 4155
#define CmdTickFile 4156
#define CmdReplaceTicked 4157
