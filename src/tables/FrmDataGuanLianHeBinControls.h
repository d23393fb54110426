// Identifiers of the dialog FrmDataGuanLianHeBin.
#pragma once

#define IDD_FRM_DATA_GUAN_LIAN_HE_BIN 5050
#define TxtSecondFile 5051
#define CmdChooseSecond 5052
#define CmbFirstDelimiter 5053
#define CmbSecondDelimiter 5054
#define TxtFirstKey 5055
#define TxtSecondKey 5056
#define TxtFirstColumns 5057
#define TxtSecondColumns 5058
#define CmbJoinKind 5059
#define ChkJoinHeader 5060
#define ChkJoinIgnoreCase 5061
#define ChkJoinIgnoreBlanks 5062
#define ChkJoinIgnoreWidth 5063
#define ChkListUnmatched 5064
#define TxtJoinPreview 5065
#define CmdStartGuanLian 5066
#define LblSecondFile 5067
#define LblFirstTable 5068
#define LblSecondTable 5069
#define LblDelimiters 5070
#define LblKeys 5071
#define LblColumns 5072
#define LblJoinKind 5073
#define LblJoinPreview 5074
