// Identifiers of the dialog FrmFileTimes.
#pragma once

#define IDD_FRM_FILE_TIMES 5500
#define TxtPlaces 5501
#define CmdAddFolder 5502
#define TxtFilePattern 5503
#define ChkSubfolders 5504
#define ChkFolders 5505
#define ChkCreated 5506
#define ChkModified 5507
#define ChkAccessed 5508
#define OptMoment 5509
#define TxtMoment 5510
#define OptOther 5511
#define CboOther 5512
#define OptName 5513
#define TxtNamePattern 5514
#define OptItself 5515
#define TxtShift 5516
#define LstTimes 5517
#define LblRemark 5518
#define CmdListTimes 5519
#define CmdChangeTimes 5520
#define CmdUndoTimes 5521
#define LblPlaces 5522
#define LblFilePattern 5523
#define LblShift 5524
#define LblKinds 5525
