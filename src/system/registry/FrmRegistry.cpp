#include "system/registry/FrmRegistry.h"

#include <algorithm>
#include <array>

#include "system/registry/FrmRegistryChanges.h"
#include "system/registry/FrmRegistryControls.h"
#include "system/registry/FrmRegistryValue.h"
#include "text/win/WideText.h"

namespace scrivanta {

FrmRegistry::FrmRegistry(WindowHost& host, RegistryDialog& logic) : Dialog(host, IDD_FRM_REGISTRY), logic_(logic) {}

void FrmRegistry::OnInit() {
  list_.Attach(Control(LstRegistryValues), {{u"名称", 130}, {u"类型", 100}, {u"数据", 270}, {u"键", 300}});
  for (const std::u16string& root : RegistryRoots()) {
    AddItem(TVI_ROOT, root, root);
  }
  SetToolTip(TxtRegistryKey, u"如 HKEY_CURRENT_USER\\Software，HKCU\\Software 也可以");
  SetToolTip(TxtRegistryFind, u"键和值的名称、值的数据里有这些字的都列出来，不分大小写");
  logic_.Open(*this);
}

bool FrmRegistry::OnCommand(int controlId, int notification) {
  return notification == BN_CLICKED && OnButton(controlId);
}

bool FrmRegistry::OnButton(int controlId) {
  switch (controlId) {
    case CmdGoToKey:
      logic_.GoTo(*this, ControlText(TxtRegistryKey));
      return true;
    case CmdRegistryFind:
      logic_.Search(*this, ControlText(TxtRegistryFind));
      return true;
    case CmdNewValue:
      logic_.NewValue(*this);
      return true;
    case CmdEditValue:
      OpenChosenRow();
      return true;
    case CmdDeleteValue:
      if (const auto row = list_.Chosen()) {
        logic_.DeleteValue(*this, *row);
      }
      return true;
    case CmdNewKey:
      logic_.NewKey(*this);
      return true;
    case CmdDeleteKey:
      logic_.DeleteKey(*this);
      return true;
    case CmdExportKey:
      logic_.Export(*this);
      return true;
    case CmdImportKey:
      logic_.Import(*this);
      return true;
    case CmdTakeBack:
      logic_.TakeBack(*this);
      return true;
    case CmdRegistryEditor:
      logic_.OpenInEditor();
      return true;
    case CmdRegistryToDocument:
      logic_.PutIntoDocument(*this);
      return true;
    default:
      return false;
  }
}

void FrmRegistry::OpenChosenRow() {
  if (const auto row = list_.Chosen()) {
    logic_.OpenRow(*this, *row);
  }
}

std::optional<LRESULT> FrmRegistry::OnMessage(UINT message, WPARAM, LPARAM lParam) {
  if (message != WM_NOTIFY) {
    return std::nullopt;
  }
  const NMHDR& header = *reinterpret_cast<const NMHDR*>(lParam);
  if (header.idFrom == TreeRegistry) {
    return OnTree(header);
  }
  if (header.idFrom == LstRegistryValues && (header.code == NM_DBLCLK || header.code == LVN_ITEMACTIVATE)) {
    OpenChosenRow();
    return 0;
  }
  return list_.OnNotify(lParam) ? std::optional<LRESULT>(0) : std::nullopt;
}

std::optional<LRESULT> FrmRegistry::OnTree(const NMHDR& header) {
  if (header.code != TVN_ITEMEXPANDINGW && header.code != TVN_SELCHANGEDW) {
    return std::nullopt;
  }
  const TVITEMW& item = reinterpret_cast<const NMTREEVIEWW&>(header).itemNew;
  if (header.code == TVN_ITEMEXPANDINGW) {
    Fill(item.hItem);
  } else if (!isShowing_) {
    const std::u16string key = KeyOf(item.hItem);
    SetControlText(TxtRegistryKey, key);
    logic_.Choose(*this, key);
  }
  return 0;
}

void FrmRegistry::ShowKey(const std::u16string& key) {
  SetControlText(TxtRegistryKey, key);
  isShowing_ = true;
  if (const HTREEITEM item = ItemOf(key, true)) {
    Tree(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
    Tree(TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
  }
  isShowing_ = false;
}

void FrmRegistry::ShowRows(const std::vector<RegistryListRow>& rows) {
  std::vector<ReportRow> shown;
  for (const RegistryListRow& row : rows) {
    if (row.isKey) {
      shown.push_back({u"（键）", u"", u"", row.key});
    } else {
      shown.push_back(
          {ShowRegistryName(row.value.name), RegistryTypeName(row.value.type), ShowRegistryData(row.value), row.key});
    }
  }
  list_.Show(std::move(shown));
}

void FrmRegistry::ShowRemark(const std::u16string& text) {
  SetControlText(LblRegistryRemark, text);
}

// The keys above may have got their first one, or have lost their last.
void FrmRegistry::Refresh(const std::u16string& key) {
  isShowing_ = true;
  if (const HTREEITEM item = ItemOf(key, false)) {
    Empty(item);
    TVITEMW change{};
    change.mask = TVIF_CHILDREN | TVIF_STATE;
    change.hItem = item;
    change.stateMask = TVIS_EXPANDED | TVIS_EXPANDEDONCE;
    change.cChildren = logic_.HasSubkeys(key) ? 1 : 0;
    Tree(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&change));
  } else if (!IsRegistryRoot(key)) {
    Refresh(ParentKey(key));
  }
  isShowing_ = false;
}

std::optional<RegistryValueForm> FrmRegistry::AskForValue(const RegistryValueForm& form,
                                                          const std::function<void(const RegistryValueForm&)>& check) {
  return FrmRegistryValue(host(), form, check).Ask(handle());
}

bool FrmRegistry::Confirm(const std::vector<RegistryChangeRow>& rows) {
  return FrmRegistryChanges(host(), rows).ShowModal(handle()) == IDOK;
}

HTREEITEM FrmRegistry::AddItem(HTREEITEM parent, const std::u16string& name, const std::u16string& key) {
  std::wstring text = ToWide(name);
  TVINSERTSTRUCTW insert{};
  insert.hParent = parent;
  insert.hInsertAfter = TVI_LAST;
  insert.item.mask = TVIF_TEXT | TVIF_CHILDREN;
  insert.item.pszText = text.data();
  insert.item.cChildren = logic_.HasSubkeys(key) ? 1 : 0;
  return reinterpret_cast<HTREEITEM>(Tree(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
}

// What is below is read when it is to be seen.
void FrmRegistry::Fill(HTREEITEM item) {
  if (Tree(TVM_GETNEXTITEM, TVGN_CHILD, reinterpret_cast<LPARAM>(item)) != 0) {
    return;
  }
  const std::u16string key = KeyOf(item);
  for (const std::u16string& name : logic_.Subkeys(*this, key)) {
    AddItem(item, name, key + u"\\" + name);
  }
}

void FrmRegistry::Empty(HTREEITEM item) {
  while (const LRESULT child = Tree(TVM_GETNEXTITEM, TVGN_CHILD, reinterpret_cast<LPARAM>(item))) {
    Tree(TVM_DELETEITEM, 0, child);
  }
}

HTREEITEM FrmRegistry::ChildNamed(HTREEITEM item, std::u16string_view name) const {
  const WPARAM first = item == TVI_ROOT ? TVGN_ROOT : TVGN_CHILD;
  auto child = reinterpret_cast<HTREEITEM>(Tree(TVM_GETNEXTITEM, first, reinterpret_cast<LPARAM>(item)));
  while (child != nullptr && !SameRegistryName(NameOf(child), name)) {
    child = reinterpret_cast<HTREEITEM>(Tree(TVM_GETNEXTITEM, TVGN_NEXT, reinterpret_cast<LPARAM>(child)));
  }
  return child;
}

// Null where the tree does not show it.
HTREEITEM FrmRegistry::ItemOf(const std::u16string& key, bool fills) {
  HTREEITEM item = TVI_ROOT;
  for (std::size_t start = 0; start <= key.size() && item != nullptr;) {
    const std::size_t end = std::min(key.find(u'\\', start), key.size());
    if (fills && item != TVI_ROOT) {
      Fill(item);
    }
    item = ChildNamed(item, std::u16string_view(key).substr(start, end - start));
    start = end + 1;
  }
  return item;
}

std::u16string FrmRegistry::NameOf(HTREEITEM item) const {
  std::array<wchar_t, MAX_PATH> text{};
  TVITEMW read{};
  read.mask = TVIF_TEXT;
  read.hItem = item;
  read.pszText = text.data();
  read.cchTextMax = static_cast<int>(text.size());
  Tree(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&read));
  return FromWide(text.data());
}

std::u16string FrmRegistry::KeyOf(HTREEITEM item) const {
  std::u16string key = NameOf(item);
  for (LRESULT parent = Tree(TVM_GETNEXTITEM, TVGN_PARENT, reinterpret_cast<LPARAM>(item)); parent != 0;
       parent = Tree(TVM_GETNEXTITEM, TVGN_PARENT, parent)) {
    key = NameOf(reinterpret_cast<HTREEITEM>(parent)) + u"\\" + key;
  }
  return key;
}

LRESULT FrmRegistry::Tree(UINT message, WPARAM wParam, LPARAM lParam) const {
  return SendMessageW(Control(TreeRegistry), message, wParam, lParam);
}

}  // namespace scrivanta
