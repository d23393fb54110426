// Objects of the platform that are called by the names of their members.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>

#include <oleauto.h>

namespace scrivanta {

// A value on its way in or out.
class AutomationValue {
 public:
  AutomationValue() noexcept { VariantInit(&value_); }
  explicit AutomationValue(bool flag) noexcept;
  explicit AutomationValue(long number) noexcept;
  explicit AutomationValue(std::u16string_view text);  // throws std::bad_alloc
  AutomationValue(AutomationValue&& other) noexcept;
  AutomationValue(const AutomationValue&) = delete;
  AutomationValue& operator=(const AutomationValue&) = delete;
  AutomationValue& operator=(AutomationValue&&) = delete;
  ~AutomationValue() { VariantClear(&value_); }

  bool isEmpty() const noexcept { return V_VT(&value_) == VT_EMPTY || V_VT(&value_) == VT_NULL; }
  // Of a number or a text; 0 and the empty text for anything else.
  long Number() const noexcept;
  std::u16string Text() const;

  VARIANT& variant() noexcept { return value_; }
  const VARIANT& variant() const noexcept { return value_; }

 private:
  VARIANT value_;
};

struct ReleaseObject {
  void operator()(IDispatch* object) const noexcept { object->Release(); }
};

class AutomationObject {
 public:
  // Of the class with that name; isNull() when there is none or it cannot be made.
  static AutomationObject Create(const wchar_t* progId);
  // The one that has been made by a program that is running now; isNull() when there is none.
  static AutomationObject Running(const wchar_t* progId);

  AutomationObject() = default;
  // The object that a value holds; isNull() when it holds none.
  explicit AutomationObject(const AutomationValue& value);

  bool isNull() const noexcept { return object_ == nullptr; }
  // The members throw std::runtime_error with what the object says.
  void Put(const wchar_t* member, const AutomationValue& value) const;
  AutomationValue Get(const wchar_t* member) const;
  // A method, or a property with an argument.
  AutomationValue Call(const wchar_t* member, const AutomationValue& argument) const;

 private:
  AutomationValue Invoke(const wchar_t* member, WORD kind, const AutomationValue* argument) const;

  std::unique_ptr<IDispatch, ReleaseObject> object_;
};

}  // namespace scrivanta
