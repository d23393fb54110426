// Identifiers of the dialog FrmDelLineFromXtoY.
#pragma once

#define IDD_FRM_DEL_LINE_FROM_X_TO_Y 3200
#define TxtDelLineStart 3201
#define TxtDelLineEnd 3202
#define CmdFrmDelLineFromXtoY 3203
#define LblDelLineStart 3204
#define LblDelLineEnd 3205
