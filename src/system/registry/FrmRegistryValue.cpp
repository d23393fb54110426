#include "system/registry/FrmRegistryValue.h"

#include <algorithm>

#include "system/registry/FrmRegistryControls.h"
#include "text/win/WideText.h"

namespace scrivanta {

namespace {

std::u16string_view HintOf(RegistryType type) {
  switch (type) {
    case RegistryType::kText:
    case RegistryType::kLink:
      return u"一段文字";
    case RegistryType::kExpandText:
      return u"一段文字，可以有 %TEMP% 这样的环境变量";
    case RegistryType::kMultiText:
      return u"一行一段文字";
    case RegistryType::kDword:
    case RegistryType::kDwordBigEndian:
      return u"32位的整数，如 10 或 0x0a";
    case RegistryType::kQword:
      return u"64位的整数，如 10 或 0x0a";
    default:
      return u"十六进制的字节，如 01 0a ff";
  }
}

}  // namespace

FrmRegistryValue::FrmRegistryValue(WindowHost& host, RegistryValueForm form, const Check& check)
    : Dialog(host, IDD_FRM_REGISTRY_VALUE), form_(std::move(form)), check_(check), types_(EditableRegistryTypes()) {
  if (std::ranges::find(types_, form_.type) == types_.end()) {
    types_.push_back(form_.type);
  }
}

std::optional<RegistryValueForm> FrmRegistryValue::Ask(HWND owner) {
  return ShowModal(owner) == IDOK ? std::optional(form_) : std::nullopt;
}

void FrmRegistryValue::OnInit() {
  for (const RegistryType type : types_) {
    SendMessageW(Control(CboValueType), CB_ADDSTRING, 0,
                 reinterpret_cast<LPARAM>(ToWide(RegistryTypeName(type)).c_str()));
  }
  const auto type = std::ranges::find(types_, form_.type) - types_.begin();
  SendMessageW(Control(CboValueType), CB_SETCURSEL, static_cast<WPARAM>(type), 0);
  SendMessageW(Control(TxtValueData), EM_SETLIMITTEXT, 0, 0);
  SetControlText(TxtValueName, form_.name);
  SetControlText(TxtValueData, form_.data);
  SendMessageW(Control(TxtValueName), EM_SETREADONLY, form_.isNew ? FALSE : TRUE, 0);
  SetToolTip(TxtValueName, u"空着是键的默认值");
  ShowHint();
  if (!form_.isNew) {
    FocusOn(TxtValueData);
  }
}

bool FrmRegistryValue::OnCommand(int controlId, int notification) {
  if (controlId == CboValueType && notification == CBN_SELCHANGE) {
    ShowHint();
    return true;
  }
  if (controlId == IDOK) {
    form_.name = ControlText(TxtValueName);
    form_.type = ChosenType();
    form_.data = ControlText(TxtValueData);
    check_(form_);
    Close(IDOK);
    return true;
  }
  return false;
}

RegistryType FrmRegistryValue::ChosenType() const {
  return types_[static_cast<std::size_t>(SendMessageW(Control(CboValueType), CB_GETCURSEL, 0, 0))];
}

void FrmRegistryValue::ShowHint() {
  SetControlText(LblValueHint, HintOf(ChosenType()));
}

}  // namespace scrivanta
