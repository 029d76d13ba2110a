#pragma once

#include <windows.h>
// These require <windows.h>.
#include <ocidl.h>
#include <ole2.h>
#include <olectl.h>

#include <string_view>
#include <utility>

namespace orvenza {

/// Initialises OLE on this thread, and uninitialises it if that succeeded.
class [[nodiscard]] OleGuard {
 public:
  OleGuard() : result_(::OleInitialize(nullptr)) {}
  ~OleGuard() {
    if (SUCCEEDED(result_)) ::OleUninitialize();
  }
  OleGuard(const OleGuard&) = delete;
  OleGuard& operator=(const OleGuard&) = delete;

  HRESULT Result() const { return result_; }

 private:
  HRESULT result_;
};

/// An interface pointer that owns one reference, or none.
template <typename T>
class ComPtr {
 public:
  ComPtr() = default;
  ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
  ComPtr& operator=(ComPtr&& other) noexcept {
    std::swap(pointer_, other.pointer_);
    return *this;
  }
  ~ComPtr() { Reset(); }

  /// Takes over the caller's reference.
  static ComPtr Take(T* pointer) {
    ComPtr owner;
    owner.pointer_ = pointer;
    return owner;
  }

  /// Adds its own reference.
  static ComPtr Share(T* pointer) {
    if (pointer != nullptr) pointer->AddRef();
    return Take(pointer);
  }

  T* Get() const { return pointer_; }
  T* operator->() const { return pointer_; }
  explicit operator bool() const { return pointer_ != nullptr; }

  /// For a call that returns a reference; drops the current one.
  T** Put() {
    Reset();
    return &pointer_;
  }

  /// The object's interface U; empty when it has none.
  template <typename U>
  ComPtr<U> As() const {
    ComPtr<U> other;
    if (pointer_ == nullptr) return other;
    void* found = nullptr;
    if (FAILED(pointer_->QueryInterface(__uuidof(U), &found))) return other;
    return ComPtr<U>::Take(static_cast<U*>(found));
  }

  /// Passes the reference to the caller.
  T* Release() { return std::exchange(pointer_, nullptr); }

  void Reset() {
    // Emptied first, since Release may call back.
    if (T* pointer = Release()) pointer->Release();
  }

 private:
  T* pointer_ = nullptr;
};

/// Owner of a BSTR, the text type of controls.
class Bstr {
 public:
  Bstr() = default;
  /// Empty when out of memory.
  explicit Bstr(std::wstring_view text)
      : text_(::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
  Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
  Bstr& operator=(Bstr&& other) noexcept {
    std::swap(text_, other.text_);
    return *this;
  }
  ~Bstr() { ::SysFreeString(text_); }

  /// For a call that returns a text; frees the current one.
  BSTR* Put() {
    ::SysFreeString(std::exchange(text_, nullptr));
    return &text_;
  }
  BSTR Release() { return std::exchange(text_, nullptr); }
  std::wstring_view View() const { return {text_ == nullptr ? L"" : text_, ::SysStringLen(text_)}; }

 private:
  BSTR text_ = nullptr;
};

/// Owner of a VARIANT, the value type of a control's members.
class Variant {
 public:
  Variant() { ::VariantInit(&value_); }
  Variant(Variant&& other) noexcept : value_(other.value_) { ::VariantInit(&other.value_); }
  Variant& operator=(Variant&& other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~Variant() { ::VariantClear(&value_); }

  static Variant Integer(int value) {
    Variant variant;
    variant.value_.vt = VT_I4;
    variant.value_.lVal = value;
    return variant;
  }
  static Variant Short(short value) {
    Variant variant;
    variant.value_.vt = VT_I2;
    variant.value_.iVal = value;
    return variant;
  }
  static Variant Boolean(bool value) {
    Variant variant;
    variant.value_.vt = VT_BOOL;
    variant.value_.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return variant;
  }
  static Variant Text(Bstr text) {
    Variant variant;
    variant.value_.vt = VT_BSTR;
    variant.value_.bstrVal = text.Release();
    return variant;
  }
  static Variant Object(ComPtr<IDispatch> object) {
    Variant variant;
    variant.value_.vt = VT_DISPATCH;
    variant.value_.pdispVal = object.Release();
    return variant;
  }

  /// Converts the value to `type`. On failure it is unchanged.
  HRESULT ChangeTo(VARTYPE type) { return ::VariantChangeType(&value_, &value_, 0, type); }

  bool AsBoolean() const { return value_.boolVal != VARIANT_FALSE; }
  std::wstring_view AsText() const {
    return {value_.bstrVal == nullptr ? L"" : value_.bstrVal, ::SysStringLen(value_.bstrVal)};
  }

  VARIANT* Get() { return &value_; }

 private:
  VARIANT value_;
};

/// Base of our objects that a control holds: counts references and provides `Interfaces`. MakeCom creates it
/// with one reference.
template <typename First, typename... Others>
class ComObject : public First, public Others... {
 public:
  ComObject() = default;
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (out == nullptr) return E_POINTER;
    *out = Find(iid);
    if (*out == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

 protected:
  virtual ~ComObject() = default;

  /// The interface `iid` of this object; null when it has none.
  virtual void* Find(REFIID iid) {
    void* found = nullptr;
    if (iid == __uuidof(IUnknown) || iid == __uuidof(First)) found = static_cast<First*>(this);
    ((found == nullptr && iid == __uuidof(Others) ? found = static_cast<Others*>(this) : found), ...);
    return found;
  }

 private:
  ULONG references_ = 1;
};

template <typename T, typename... Arguments>
ComPtr<T> MakeCom(Arguments&&... arguments) {
  return ComPtr<T>::Take(new T(std::forward<Arguments>(arguments)...));
}

}  // namespace orvenza
