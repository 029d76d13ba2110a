#include "device/windows/source_interface.h"

#include <cstddef>
#include <optional>
#include <string>

#include "device/windows/com_error.h"
#include "platform/system_error.h"

namespace orvenza {
namespace {

/// Owner of a structure that type information lends and takes back.
template <typename T, void (STDMETHODCALLTYPE ITypeInfo::*GiveBack)(T*)>
class Lent {
 public:
  explicit Lent(ITypeInfo* owner) : owner_(owner) {}
  ~Lent() {
    if (lent_ != nullptr) (owner_->*GiveBack)(lent_);
  }
  Lent(const Lent&) = delete;
  Lent& operator=(const Lent&) = delete;

  T** Put() { return &lent_; }
  T* operator->() const { return lent_; }

 private:
  ITypeInfo* owner_;
  T* lent_ = nullptr;
};

using LentType = Lent<TYPEATTR, &ITypeInfo::ReleaseTypeAttr>;
using LentFunction = Lent<FUNCDESC, &ITypeInfo::ReleaseFuncDesc>;
using LentVariable = Lent<VARDESC, &ITypeInfo::ReleaseVarDesc>;

ComPtr<ITypeInfo> ClassInfo(const ComPtr<IUnknown>& control, REFCLSID clsid) {
  ComPtr<ITypeInfo> info;
  if (const auto provider = control.As<IProvideClassInfo>()) {
    if (SUCCEEDED(provider->GetClassInfo(info.Put())) && info) return info;
    info.Reset();
  }
  // Otherwise the library that describes the members describes the class as well.
  const auto members = control.As<IDispatch>();
  ComPtr<ITypeInfo> types;
  ComPtr<ITypeLib> library;
  UINT index = 0;
  if (!members || FAILED(members->GetTypeInfo(0, LOCALE_USER_DEFAULT, types.Put())) || !types) return info;
  if (FAILED(types->GetContainingTypeLib(library.Put(), &index))) return info;
  if (FAILED(library->GetTypeInfoOfGuid(clsid, info.Put()))) info.Reset();
  return info;
}

ComPtr<ITypeInfo> DefaultSource(const ComPtr<ITypeInfo>& classInfo) {
  ComPtr<ITypeInfo> source;
  LentType attributes(classInfo.Get());
  if (FAILED(classInfo->GetTypeAttr(attributes.Put()))) return source;
  constexpr INT kWanted = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
  for (UINT i = 0; i < attributes->cImplTypes; ++i) {
    INT flags = 0;
    HREFTYPE reference = 0;
    if (FAILED(classInfo->GetImplTypeFlags(i, &flags)) || (flags & kWanted) != kWanted) continue;
    if (FAILED(classInfo->GetRefTypeOfImplType(i, &reference))) continue;
    if (SUCCEEDED(classInfo->GetRefTypeInfo(reference, source.Put()))) return source;
  }
  source.Reset();
  return source;
}

/// Without events every command would remain without a reply.
[[noreturn]] void RefuseEvents(const std::string& found) {
  throw SystemError(error_number::kCannotCreateObject, "events: " + found);
}

/// Empty when the description cannot be read.
std::optional<SourceInterface> Describe(const ComPtr<ITypeInfo>& source) {
  LentType attributes(source.Get());
  if (FAILED(source->GetTypeAttr(attributes.Put()))) return std::nullopt;
  if (attributes->typekind != TKIND_DISPATCH) {
    RefuseEvents("no dispatch interface, but of kind " + std::to_string(attributes->typekind));
  }
  SourceInterface found;
  found.iid = attributes->guid;
  std::size_t known = 0;
  for (UINT i = 0; i < attributes->cFuncs && known < found.events.size(); ++i) {
    LentFunction function(source.Get());
    if (FAILED(source->GetFuncDesc(i, function.Put()))) continue;
    // The inherited methods are not events.
    if ((function->wFuncFlags & FUNCFLAG_FRESTRICTED) != 0) continue;
    found.events[known++] = function->memid;
  }
  if (known < found.events.size()) {
    RefuseEvents(std::to_string(known) + " of " + std::to_string(found.events.size()));
  }
  return found;
}

/// The first connection point other than the one for changed properties, which every control may have.
std::optional<IID> FirstConnectionPoint(const ComPtr<IUnknown>& control) {
  const auto container = control.As<IConnectionPointContainer>();
  ComPtr<IEnumConnectionPoints> points;
  if (!container || FAILED(container->EnumConnectionPoints(points.Put())) || !points) return std::nullopt;
  ComPtr<IConnectionPoint> point;
  while (points->Next(1, point.Put(), nullptr) == S_OK) {
    IID iid{};
    if (SUCCEEDED(point->GetConnectionInterface(&iid)) && iid != __uuidof(IPropertyNotifySink)) return iid;
  }
  return std::nullopt;
}

}  // namespace

SourceInterface FindSourceInterface(const ComPtr<IUnknown>& control, REFCLSID clsid) {
  if (const auto classInfo = ClassInfo(control, clsid)) {
    if (const auto source = DefaultSource(classInfo)) {
      if (const auto described = Describe(source)) return *described;
    }
  }
  SourceInterface numbered;
  if (const auto provider = control.As<IProvideClassInfo2>()) {
    if (SUCCEEDED(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &numbered.iid))) return numbered;
  }
  const auto iid = FirstConnectionPoint(control);
  if (!iid) CheckCreation(CONNECT_E_NOCONNECTION, "events");
  numbered.iid = *iid;
  return numbered;
}

VARTYPE TypeOfProperty(const ComPtr<ITypeInfo>& types, DISPID member) {
  if (!types) return VT_EMPTY;
  LentType attributes(types.Get());
  if (FAILED(types->GetTypeAttr(attributes.Put()))) return VT_EMPTY;
  for (UINT i = 0; i < attributes->cFuncs; ++i) {
    LentFunction function(types.Get());
    if (FAILED(types->GetFuncDesc(i, function.Put())) || function->memid != member) continue;
    if (function->invkind == INVOKE_PROPERTYPUT && function->cParams > 0) {
      return function->lprgelemdescParam[function->cParams - 1].tdesc.vt;
    }
  }
  for (UINT i = 0; i < attributes->cVars; ++i) {
    LentVariable variable(types.Get());
    if (FAILED(types->GetVarDesc(i, variable.Put())) || variable->memid != member) continue;
    return variable->elemdescVar.tdesc.vt;
  }
  return VT_EMPTY;
}

}  // namespace orvenza
