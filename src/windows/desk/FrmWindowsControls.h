// Identifiers of the dialog FrmWindows.
#pragma once

#define IDD_FRM_WINDOWS 5700
#define LblWindowFilter 5701
#define TxtWindowFilter 5702
#define ChkHiddenWindows 5703
#define LblWindowCross 5704
#define ImgWindowCross 5705
#define CmdRefreshWindows 5706
#define TreeWindows 5707
#define LblWindowDetails 5708
#define TxtWindowDetails 5709
#define LblWindowText 5710
#define TxtWindowText 5711
#define CmdSetWindowText 5712
#define CmdWindowTextToDocument 5713
#define CmdBringUpWindow 5714
#define CmdShowWindow 5715
#define CmdHideWindow 5716
#define CmdMoveWindow 5717
#define CmdKeepOnTop 5718
#define CmdCloseWindow 5719
#define CmdWindowsToDocument 5720
#define LblProcesses 5721
#define LstProcesses 5722
#define CmdEndProcess 5723
#define CmdProcessesToDocument 5724
#define LblWindowsRemark 5725
#define LblWindowTree 5726
