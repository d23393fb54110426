// Identifiers of the dialog FrmChangeToSDFFile.
#pragma once

#define IDD_FRM_CHANGE_TO_SDF_FILE 5030
#define OptToSDF 5031
#define OptFromSDF 5032
#define CmbSDFDelimiter 5033
#define CmbSDFUnit 5034
#define TxtSDFWidths 5035
#define TxtSDFAligns 5036
#define ChkSDFEndMark 5037
#define CmdLoadLayout 5038
#define CmdSaveLayout 5039
#define TxtSDFPreview 5040
#define CmdStartChangeToSDF 5041
#define LblSDFDelimiter 5042
#define LblSDFUnit 5043
#define LblSDFWidths 5044
#define LblSDFAligns 5045
#define LblSDFPreview 5046
