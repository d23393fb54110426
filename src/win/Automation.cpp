#include "win/Automation.h"

#include <new>
#include <stdexcept>

#include "text/Encoding.h"
#include "text/win/WideText.h"

namespace scrivanta {

namespace {

// What the object says of its failure, in UTF-8. Takes the strings over.
std::string TakeDescription(EXCEPINFO& info, HRESULT result) {
  std::string description;
  if (info.bstrDescription != nullptr) {
    description = Encode(Encoding::kUtf8, FromWide({info.bstrDescription, SysStringLen(info.bstrDescription)}));
  }
  SysFreeString(info.bstrSource);
  SysFreeString(info.bstrDescription);
  SysFreeString(info.bstrHelpFile);
  return description.empty() ? "the object has failed (" + std::to_string(result) + ")" : description;
}

}  // namespace

AutomationValue::AutomationValue(bool flag) noexcept : AutomationValue() {
  V_VT(&value_) = VT_BOOL;
  V_BOOL(&value_) = flag ? VARIANT_TRUE : VARIANT_FALSE;
}

AutomationValue::AutomationValue(long number) noexcept : AutomationValue() {
  V_VT(&value_) = VT_I4;
  V_I4(&value_) = number;
}

AutomationValue::AutomationValue(std::u16string_view text) : AutomationValue() {
  const std::wstring wide = ToWide(text);
  BSTR string = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (string == nullptr) {
    throw std::bad_alloc();
  }
  V_VT(&value_) = VT_BSTR;
  V_BSTR(&value_) = string;
}

AutomationValue::AutomationValue(AutomationValue&& other) noexcept : value_(other.value_) {
  VariantInit(&other.value_);
}

long AutomationValue::Number() const noexcept {
  return V_VT(&value_) == VT_I4 ? V_I4(&value_) : V_VT(&value_) == VT_I2 ? V_I2(&value_) : 0;
}

std::u16string AutomationValue::Text() const {
  return V_VT(&value_) == VT_BSTR ? FromWide({V_BSTR(&value_), SysStringLen(V_BSTR(&value_))}) : std::u16string();
}

AutomationObject AutomationObject::Create(const wchar_t* progId) {
  AutomationObject made;
  CLSID classId;
  IDispatch* object = nullptr;
  if (SUCCEEDED(CLSIDFromProgID(progId, &classId)) &&
      SUCCEEDED(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object)))) {
    made.object_.reset(object);
  }
  return made;
}

AutomationObject AutomationObject::Running(const wchar_t* progId) {
  AutomationObject running;
  CLSID classId;
  IUnknown* unknown = nullptr;
  if (SUCCEEDED(CLSIDFromProgID(progId, &classId)) && SUCCEEDED(GetActiveObject(classId, nullptr, &unknown))) {
    IDispatch* object = nullptr;
    if (SUCCEEDED(unknown->QueryInterface(IID_PPV_ARGS(&object)))) {
      running.object_.reset(object);
    }
    unknown->Release();
  }
  return running;
}

AutomationObject::AutomationObject(const AutomationValue& value) {
  if (V_VT(&value.variant()) == VT_DISPATCH && V_DISPATCH(&value.variant()) != nullptr) {
    object_.reset(V_DISPATCH(&value.variant()));
    object_->AddRef();
  }
}

void AutomationObject::Put(const wchar_t* member, const AutomationValue& value) const {
  Invoke(member, DISPATCH_PROPERTYPUT, &value);
}

AutomationValue AutomationObject::Get(const wchar_t* member) const {
  return Invoke(member, DISPATCH_PROPERTYGET, nullptr);
}

AutomationValue AutomationObject::Call(const wchar_t* member, const AutomationValue& argument) const {
  return Invoke(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &argument);
}

AutomationValue AutomationObject::Invoke(const wchar_t* member, WORD kind, const AutomationValue* argument) const {
  if (isNull()) {
    throw std::runtime_error("there is no object to call");
  }
  std::wstring name(member);
  LPOLESTR names = name.data();
  DISPID id = DISPID_UNKNOWN;
  HRESULT result = object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
  DISPID putId = DISPID_PROPERTYPUT;
  VARIANT passed{};
  DISPPARAMS parameters{};
  if (argument != nullptr) {
    passed = argument->variant();  // still owned by the argument
    parameters.rgvarg = &passed;
    parameters.cArgs = 1;
  }
  if (kind == DISPATCH_PROPERTYPUT) {
    parameters.rgdispidNamedArgs = &putId;
    parameters.cNamedArgs = 1;
  }
  AutomationValue answer;
  EXCEPINFO info{};
  if (SUCCEEDED(result)) {
    result = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, &answer.variant(), &info, nullptr);
  }
  if (FAILED(result)) {
    throw std::runtime_error(TakeDescription(info, result));
  }
  return answer;
}

}  // namespace scrivanta
