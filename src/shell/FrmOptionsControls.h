// Identifiers of the options dialog.
#pragma once

#define IDD_FRM_OPTIONS 3800
#define ChkNoRet 3801
#define ChkEngLish 3802
#define Frame1 3803
#define TxtDefaultFile 3804
#define CmdDefaultFile 3805
#define CmdOK 3806
#define CmdQuit 3807
#define LblIniFile 3808
#define TxtIniFile 3809
