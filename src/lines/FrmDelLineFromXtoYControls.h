// Identifiers of the dialog FrmDelLineFromXtoY.
#pragma once

#define IDD_FRM_DEL_LINE_FROM_X_TO_Y 3800
#define TxtDelLineStart 3801
#define TxtDelLineEnd 3802
#define CmdFrmDelLineFromXtoY 3803
#define LblDelLineStart 3804
#define LblDelLineEnd 3805
