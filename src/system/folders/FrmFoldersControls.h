// Identifiers of the windows FrmFolders and FrmShortcut.
#pragma once

#define IDD_FRM_FOLDERS 5660
#define LblSpecialFolders 5661
#define LstSpecialFolders 5662
#define CmdOpenFolder 5663
#define CmdListFolder 5664
#define CmdFoldersToDocument 5665
#define LblShortcutPlaces 5666
#define TxtShortcutPlaces 5667
#define CmdListShortcuts 5668
#define LstShortcuts 5669
#define CmdNewShortcut 5670
#define CmdEditShortcut 5671
#define CmdOpenTarget 5672
#define CmdFindTargets 5673
#define LblOldBeginning 5674
#define TxtOldBeginning 5675
#define LblNewBeginning 5676
#define TxtNewBeginning 5677
#define CmdReplaceBeginning 5678
#define CmdChangeShortcuts 5679
#define CmdTakeShortcutsBack 5680
#define CmdShortcutsToDocument 5681
#define LblFoldersRemark 5682

#define IDD_FRM_SHORTCUT 5690
#define TxtShortcutFile 5691
#define TxtShortcutTarget 5692
#define TxtShortcutArguments 5693
#define TxtShortcutFolder 5694
#define TxtShortcutIcon 5695
#define TxtShortcutHotKey 5696
#define CboShortcutWindow 5697
#define TxtShortcutDescription 5698
#define CmdBrowseTarget 5699
#define LblShortcut1 5700
#define LblShortcut2 5701
#define LblShortcut3 5702
#define LblShortcut4 5703
#define LblShortcut5 5704
#define LblShortcut6 5705
#define LblShortcut7 5706
#define LblShortcut8 5707
