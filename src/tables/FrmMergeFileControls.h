// Identifiers of the dialog FrmMergeFile.
#pragma once

#define IDD_FRM_MERGE_FILE 5120
#define LabMergeFile 5121
#define LstMergeFile 5122
#define CmdMergeAddFile 5123
#define CmdMergeAddFolder 5124
#define CmdMergeRemove 5125
#define LabMergePattern 5126
#define TxtMergePattern 5127
#define ChkMergeSubfolder 5128
#define ChkMergeTitle 5129
#define FrmMergeTarget 5130
#define OptMergeToDocument 5131
#define OptMergeToFile 5132
#define CmdStartMerge 5133
