// Identifiers of the dialog FrmJiaZiMu.
#pragma once

#define IDD_FRM_JIA_ZI_MU 5100
#define FrmZiMuWeiZhi 5101
#define OptZiMuQian 5102
#define OptZiMuHou 5103
#define OptZiMuLie 5104
#define OptZiMuZhi 5105
#define ChkShouZiMu 5106
#define ChkXiaoXie 5107
#define ChkXingMing 5108
#define ChkDuoYinZi 5109
#define CmdJiaZiMu 5110
