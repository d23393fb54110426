// Identifiers of the find dialog, for its template and its code.
#pragma once

#define IDD_FRM_FIND 4100
#define Label1 4101
#define Combo1 4102
#define Label2 4103
#define Combo2 4104
#define Option1 4105
#define Option2 4106
#define ChkCapitalCheck 4107
#define ChkRegExpSearch 4108
#define ChkIncludeFormat 4109
#define CmdFindNext 4110
#define CmdFindAll 4111
#define CmdReplace 4112
#define CmdReplaceAll 4113
#define CmdFilter 4114
#define CmdSearchInFile 4115
#define CmdReplaceInFile 4116
#define CmdClose 4117
#define RichTextBox1 4118
#define ChkInSelection 4119
