// Identifiers of the dialog FrmSortParameters.
#pragma once

#define IDD_FRM_SORT_PARAMETERS 3850
#define Label2 3851
#define TxtSortFrom 3852
#define Label1 3853
#define TxtSortTo 3854
#define Label3 3855
#define LabTotalNum 3856
#define Label5 3857
#define FrmSortBy 3858
#define OptNumber 3859
#define OptString 3860
#define FrmSortActs 3861
#define OptShenXi 3862
#define OptJiangXi 3863
#define CmdSort 3864
#define OptPinYin 3865
#define OptBiHua 3866
