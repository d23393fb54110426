// Identifiers of the dialog FrmFenLan.
#pragma once

#define IDD_FRM_FEN_LAN 5000
#define CmbFenLanWay 5001
#define TxtFenLanCount 5002
#define TxtFenLanLines 5003
#define TxtFenLanWidth 5004
#define TxtFenLanGap 5005
#define ChkFenLanAcross 5006
#define CmbFenLanTooWide 5007
#define CmbFenLanUnit 5008
#define CmbFenLanSplitAt 5009
#define TxtFenLanPreview 5010
#define CmdStartFenLan 5011
#define LblFenLanWay 5012
#define LblFenLanCount 5013
#define LblFenLanLines 5014
#define LblFenLanWidth 5015
#define LblFenLanGap 5016
#define LblFenLanTooWide 5017
#define LblFenLanUnit 5018
#define LblFenLanSplitAt 5019
#define LblFenLanPreview 5020
