// Identifiers of the dialog FrmDatabase.
#pragma once

#define IDD_FRM_DATABASE 5400
#define LblSource 5401
#define CmbSource 5402
#define CmdBrowseSource 5403
#define CmdOpenSource 5404
#define LblTables 5405
#define LstTables 5406
#define LblRows 5407
#define LvwRows 5408
#define LblQuery 5409
#define TxtQuery 5410
#define CmdQuery 5411
#define LblDelimiter 5412
#define CmbDelimiter 5413
#define ChkHeader 5414
#define FrmExport 5415
#define CmdToDocument 5416
#define CmdToFile 5417
#define FrmImport 5418
#define LblTable 5419
#define TxtTable 5420
#define CmdFromDocument 5421
#define CmdFromFile 5422
#define LblState 5423
#define CmdCloseDatabase 5424
