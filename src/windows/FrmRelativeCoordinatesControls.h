// Identifiers of the dialog FrmRelativeCoordinates.
#pragma once

#define IDD_FRM_RELATIVE_COORDINATES 5540
#define LblDialect 5541
#define CboDialect 5542
#define FrmBase 5543
#define OptBaseWindow 5544
#define CboCaption 5545
#define OptBaseFirst 5546
#define OptBasePrevious 5547
#define OptBasePoint 5548
#define TxtOriginX 5549
#define TxtOriginY 5550
#define CmdConvert 5551
