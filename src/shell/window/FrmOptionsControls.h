// Identifiers of the options dialog.
#pragma once

#define IDD_FRM_OPTIONS 3200
#define ChkNoRet 3201
#define ChkEngLish 3202
#define Frame1 3203
#define TxtDefaultFile 3204
#define CmdDefaultFile 3205
#define CmdOK 3206
#define CmdQuit 3207
#define LblIniFile 3208
#define TxtIniFile 3209
#define ChkRegExpObject 3210
#define LblEngLish 3211
#define CmdKeys 3212
#define LblColours 3213
#define OptColours0 3214
#define OptColours1 3215
#define OptColours2 3216
