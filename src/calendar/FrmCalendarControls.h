// Identifiers of the dialog FrmCalendar.
#pragma once

#define IDD_FRM_CALENDAR 5200
#define CmdYearBack 5201
#define CmdMonthBack 5202
#define CmdToday 5203
#define CmdMonthForward 5204
#define CmdYearForward 5205
#define OptMonth 5206
#define OptYear 5207
#define ChkMonday 5208
#define FrmPage 5209
#define RichCalendar 5210
#define TxtDetails 5211
#define LabDate 5212
#define TxtDate 5213
#define CmdGoTo 5214
#define LabLunarDate 5215
#define TxtLunarDate 5216
#define CmdGoToLunar 5217
#define LabFrom 5218
#define TxtFrom 5219
#define LabTo 5220
#define TxtTo 5221
#define CmdDistance 5222
#define LabDays 5223
#define TxtDays 5224
#define CmdAddDays 5225
#define LabDistance 5226
#define CmdInsert 5227
#define CmdPrint 5228
#define CmdSave 5229
#define CmdCloseCalendar 5230
