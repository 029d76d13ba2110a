// The library's exports, through which the system creates the stand-in.

#include "standin/behaviour.h"
#include "standin/standin_control.h"
#include "standin/type_library.h"

namespace orvenza::test {
namespace {

class Factory : public ComObject<IClassFactory> {
 public:
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** out) override {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    if (Behaviour::Now().Is("refuses")) return CLASS_E_NOTLICENSED;
    return MakeCom<StandInControl>()->QueryInterface(iid, out);
  }
  STDMETHODIMP LockServer(BOOL lock) override {
    Alive::count += lock != FALSE ? 1 : -1;
    return S_OK;
  }

 private:
  Alive alive_;
};

}  // namespace
}  // namespace orvenza::test

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** out) {
  if (clsid != orvenza::test::kStandInClass) return CLASS_E_CLASSNOTAVAILABLE;
  return orvenza::MakeCom<orvenza::test::Factory>()->QueryInterface(iid, out);
}

STDAPI DllCanUnloadNow() { return orvenza::test::Alive::count == 0 ? S_OK : S_FALSE; }
