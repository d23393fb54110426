// Identifiers of the windows FrmRegistry, FrmRegistryValue and FrmRegistryChanges.
#pragma once

#define IDD_FRM_REGISTRY 5600
#define LblRegistryKey 5601
#define TxtRegistryKey 5602
#define CmdGoToKey 5603
#define TreeRegistry 5604
#define LstRegistryValues 5605
#define TxtRegistryFind 5606
#define CmdRegistryFind 5607
#define CmdNewValue 5608
#define CmdEditValue 5609
#define CmdDeleteValue 5610
#define CmdNewKey 5611
#define CmdDeleteKey 5612
#define CmdExportKey 5613
#define CmdImportKey 5614
#define CmdTakeBack 5615
#define CmdRegistryEditor 5616
#define CmdRegistryToDocument 5617
#define LblRegistryRemark 5618
#define LblRegistryFind 5619

#define IDD_FRM_REGISTRY_VALUE 5630
#define LblValueName 5631
#define TxtValueName 5632
#define LblValueType 5633
#define CboValueType 5634
#define LblValueData 5635
#define TxtValueData 5636
#define LblValueHint 5637

#define IDD_FRM_REGISTRY_CHANGES 5650
#define LblChanges 5651
#define LstChanges 5652
