#include "standin/standin_control.h"

#include "standin/call_log.h"
#include "standin/surroundings.h"

namespace orvenza::test {
namespace {

constexpr DISPID kUnlistedEvent = 11;

HRESULT Refuse(const std::string& what) {
  Note("refused: " + what);
  return E_UNEXPECTED;
}

/// Whether the control's container is in run mode as opposed to design mode.
bool ProgramRuns(const ComPtr<IOleClientSite>& site) {
  Variant running = Ambient(site, DISPID_AMBIENT_USERMODE);
  return running.Get()->vt == VT_BOOL && running.AsBoolean();
}

}  // namespace

StandInControl::StandInControl() : types_(BuildTypeLibrary(behaviour_)) {
  line_.Link().SetEvents(this);
  Note("created");
}

StandInControl::~StandInControl() {
  line_.Link().SetEvents(nullptr);
  if (site_ || window_ != nullptr) Note("released while it was hosted");
  if (window_ != nullptr) ::DestroyWindow(window_);
  Note("released");
}

void* StandInControl::Find(REFIID iid) {
  const std::string state = behaviour_.State();
  const std::string types = behaviour_.Types();
  if (iid == IID_IDispatch && behaviour_.Is("no-members")) return nullptr;
  if (iid == IID_IConnectionPointContainer && behaviour_.Is("no-events")) return nullptr;
  if (iid == IID_IPersistStreamInit && !state.ends_with("stream")) return nullptr;
  if (iid == IID_IPersistStorage && state != "storage" && state != "unimplemented-stream") return nullptr;
  if (iid == IID_IPersistPropertyBag && state != "bag") return nullptr;
  if (iid == IID_IProvideClassInfo2 && types != "class2" && types != "guid") return nullptr;
  if (iid == IID_IProvideClassInfo) {
    const bool provided = types == "class2" || types == "class" || types == "guid";
    return provided ? static_cast<IProvideClassInfo2*>(this) : nullptr;
  }
  return PlainControl::Find(iid);
}

HRESULT StandInControl::GetMiscStatus(DWORD, DWORD* status) {
  if (behaviour_.Is("registry-status")) return OLE_S_USEREG;
  *status = OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE;
  if (behaviour_.Is("site-first")) *status |= OLEMISC_SETCLIENTSITEFIRST;
  if (behaviour_.Is("invisible")) *status |= OLEMISC_INVISIBLEATRUNTIME;
  return S_OK;
}

HRESULT StandInControl::SetClientSite(IOleClientSite* site) {
  if (site != nullptr && !behaviour_.Is("site-first") && !initialised_ && behaviour_.State() != "none") {
    return Refuse("a site before the initialisation");
  }
  if (site == nullptr && window_ != nullptr) return Refuse("no site while active");
  if (site != nullptr && behaviour_.Is("no-site")) return E_ACCESSDENIED;
  auto place = ComPtr<IOleClientSite>::Share(site);
  if (const DISPID wrong = place ? WrongAmbient(place) : 0; wrong != 0) {
    return Refuse("a site by its ambient property " + std::to_string(wrong));
  }
  Note(site == nullptr ? "no site" : "site");
  site_ = std::move(place);
  return S_OK;
}

HRESULT StandInControl::InitNew() {
  return behaviour_.State() == "unimplemented-stream" ? E_NOTIMPL : Initialise();
}

HRESULT StandInControl::InitNew(IStorage* storage) { return storage == nullptr ? E_POINTER : Initialise(); }

HRESULT StandInControl::Initialise() {
  if (behaviour_.Is("no-state")) return E_ACCESSDENIED;
  if (initialised_) return Refuse("a second initialisation");
  if (behaviour_.Is("site-first") && !site_) return Refuse("an initialisation before the site");
  initialised_ = true;
  Note("initialised");
  return S_OK;
}

HRESULT StandInControl::DoVerb(LONG verb, MSG*, IOleClientSite* site, LONG, HWND window, LPCRECT place) {
  if (behaviour_.Is("asleep") || behaviour_.Is("invisible")) return E_FAIL;
  if (verb != OLEIVERB_SHOW && (verb != OLEIVERB_INPLACEACTIVATE || behaviour_.Is("shows-only"))) {
    return E_NOTIMPL;
  }
  const bool ready = site_ && site == site_.Get() && (initialised_ || behaviour_.State() == "none");
  if (!ready || place == nullptr || !ProgramRuns(site_)) return Refuse("activation");
  return Activate(window);
}

HRESULT StandInControl::Activate(HWND window) {
  const auto site = site_.As<IOleInPlaceSite>();
  HWND parent = nullptr;
  if (!site || site->CanInPlaceActivate() != S_OK || FAILED(site->GetWindow(&parent)) || parent != window) {
    return Refuse("activation");
  }
  ComPtr<IOleInPlaceFrame> frame;
  ComPtr<IOleInPlaceUIWindow> document;
  RECT place{};
  RECT clip{};
  OLEINPLACEFRAMEINFO info{};
  info.cb = sizeof info;
  site->OnInPlaceActivate();
  if (FAILED(site->GetWindowContext(frame.Put(), document.Put(), &place, &clip, &info)) || !frame) {
    return Refuse("activation");
  }
  window_ = ::CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, place.left, place.top,
                              place.right - place.left, place.bottom - place.top, parent, nullptr, nullptr,
                              nullptr);
  if (window_ == nullptr) return Refuse("activation");
  site_->ShowObject();
  Note(::IsWindowVisible(window_) == FALSE ? "activated" : "activated in sight");
  return S_OK;
}

HRESULT StandInControl::InPlaceDeactivate() {
  if (window_ == nullptr) return E_UNEXPECTED;
  ::DestroyWindow(std::exchange(window_, nullptr));
  if (const auto site = site_.As<IOleInPlaceSite>()) site->OnInPlaceDeactivate();
  Note("deactivated");
  return S_OK;
}

HRESULT StandInControl::Close(DWORD option) {
  if (option != OLECLOSE_NOSAVE) return Refuse("saving");
  if (window_ != nullptr) return Refuse("closing while active");
  Note("closed");
  return S_OK;
}

HRESULT StandInControl::GetClassInfo(ITypeInfo** info) {
  if (!behaviour_.Described() || !types_.classInfo) return E_FAIL;
  *info = ComPtr<ITypeInfo>::Share(types_.classInfo.Get()).Release();
  return S_OK;
}

HRESULT StandInControl::GetGUID(DWORD kind, GUID* guid) {
  if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
  *guid = kStandInEvents;
  return S_OK;
}

HRESULT StandInControl::EnumConnectionPoints(IEnumConnectionPoints** points) {
  *points = new ConnectionPoints(events_);
  return S_OK;
}

HRESULT StandInControl::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
  *point = nullptr;
  if (iid != kStandInEvents) return CONNECT_E_NOCONNECTION;
  *point = ComPtr<EventSource>::Share(events_.Get()).Release();
  return S_OK;
}

HRESULT StandInControl::GetTypeInfoCount(UINT* count) {
  *count = behaviour_.Described() ? 1 : 0;
  return S_OK;
}

HRESULT StandInControl::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
  UINT count = 0;
  GetTypeInfoCount(&count);
  *info = nullptr;
  if (index >= count || !types_.members) return DISP_E_BADINDEX;
  *info = ComPtr<ITypeInfo>::Share(types_.members.Get()).Release();
  return S_OK;
}

void StandInControl::Raise(std::size_t event) {
  // A listener may release the control.
  const auto self = ComPtr<IOleObject>::Share(this);
  if (event == 0 && behaviour_.Is("noisy") && FAILED(events_->Raise(kUnlistedEvent))) return;
  events_->Raise(behaviour_.Described() ? Events()[event].number : static_cast<DISPID>(event + 1));
}

}  // namespace orvenza::test
