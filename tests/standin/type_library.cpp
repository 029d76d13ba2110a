#include "standin/type_library.h"

namespace orvenza::test {
namespace {

constexpr WORD kMethod = DISPATCH_METHOD;
constexpr WORD kGet = DISPATCH_PROPERTYGET;
constexpr WORD kPut = DISPATCH_PROPERTYPUT;

constexpr Member kMembers[] = {
    {1, L"Answer", kGet, VT_BSTR},       {2, L"Go", kMethod, VT_VOID},       {5, L"Alive", kGet, VT_BOOL},
    {6, L"Line", kGet | kPut, VT_BOOL},  {7, L"Velocity", kPut, VT_I4},      {8, L"Evenness", kPut, VT_I4},
    {9, L"Width", kPut, VT_I4},          {10, L"Tail", kPut, VT_I4},         {11, L"Letter", kPut, VT_I4},
    {12, L"FirstPatience", kPut, VT_I4}, {13, L"LastPatience", kPut, VT_I4}, {14, L"FrameTries", kPut, VT_I4},
    {15, L"TextTries", kPut, VT_I4},     {16, L"Socket", kPut, VT_I4},       {17, L"Question", kPut, VT_BSTR},
    {18, L"Afresh", kPut, VT_BOOL},
};

constexpr Member kEvents[] = {
    {7, L"Heard", kMethod, VT_VOID},
    {3, L"TroubleA", kMethod, VT_VOID},
    {9, L"TroubleB", kMethod, VT_VOID},
    {5, L"TroubleC", kMethod, VT_VOID},
};

LPOLESTR Name(const wchar_t* name) { return const_cast<LPOLESTR>(name); }

HRESULT AddFunction(ICreateTypeInfo& type, UINT index, const Member& member, WORD kind, WORD flags = 0) {
  ELEMDESC value{};
  value.tdesc.vt = member.type;
  FUNCDESC function{};
  function.memid = member.number;
  function.funckind = FUNC_DISPATCH;
  function.invkind = static_cast<INVOKEKIND>(kind);
  function.callconv = CC_STDCALL;
  function.wFuncFlags = flags;
  function.elemdescFunc.tdesc.vt = kind == kGet ? member.type : static_cast<VARTYPE>(VT_VOID);
  if (kind == kPut) {
    function.cParams = 1;
    function.lprgelemdescParam = &value;
  }
  const HRESULT added = type.AddFuncDesc(index, &function);
  if (FAILED(added)) return added;
  LPOLESTR name = Name(member.name);
  return type.SetFuncAndParamNames(index, &name, 1);
}

HRESULT AddVariable(ICreateTypeInfo& type, UINT index, const Member& member) {
  VARDESC variable{};
  variable.memid = member.number;
  variable.varkind = VAR_DISPATCH;
  variable.elemdescVar.tdesc.vt = member.type;
  const HRESULT added = type.AddVarDesc(index, &variable);
  return FAILED(added) ? added : type.SetVarName(index, Name(member.name));
}

HRESULT AddMembers(ICreateTypeInfo& type, const Behaviour& behaviour) {
  UINT functions = 0;
  UINT variables = 0;
  HRESULT result = S_OK;
  for (Member member : kMembers) {
    const bool integer = member.type == VT_I4;
    if (integer) member.type = IntegerType(behaviour);
    if (integer && behaviour.Is("variables")) {
      if (SUCCEEDED(result)) result = AddVariable(type, variables++, member);
      continue;
    }
    for (const WORD kind : {kMethod, kGet, kPut}) {
      if (SUCCEEDED(result) && (member.kinds & kind) != 0) {
        result = AddFunction(type, functions++, member, kind);
      }
    }
  }
  return result;
}

HRESULT AddEvents(ICreateTypeInfo& type, const Behaviour& behaviour) {
  constexpr Member kInherited{0x60000000, L"Inherited", kMethod, VT_VOID};
  constexpr UINT kFew = 2;
  UINT index = 0;
  HRESULT result = S_OK;
  if (behaviour.Is("inherited"))
    result = AddFunction(type, index++, kInherited, kMethod, FUNCFLAG_FRESTRICTED);
  for (const Member& event : kEvents) {
    if (behaviour.Is("few-events") && index == kFew) break;
    if (SUCCEEDED(result)) result = AddFunction(type, index++, event, kMethod);
  }
  return result;
}

/// Every automation interface inherits the system's.
HRESULT Inherit(ICreateTypeInfo& type) {
  constexpr GUID kStandardLibrary = {0x00020430, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
  ComPtr<ITypeLib> library;
  ComPtr<ITypeInfo> base;
  HREFTYPE reference = 0;
  HRESULT result = ::LoadRegTypeLib(kStandardLibrary, 2, 0, 0, library.Put());
  if (SUCCEEDED(result)) result = library->GetTypeInfoOfGuid(IID_IDispatch, base.Put());
  if (SUCCEEDED(result)) result = type.AddRefTypeInfo(base.Get(), &reference);
  return SUCCEEDED(result) ? type.AddImplType(0, reference) : result;
}

using Filler = HRESULT (*)(ICreateTypeInfo& type, const Behaviour& behaviour);

/// `fill` is not called for an interface that is called by position.
ComPtr<ITypeInfo> AddInterface(ICreateTypeLib2& library, TYPEKIND kind, const wchar_t* name, REFIID iid,
                               Filler fill, const Behaviour& behaviour) {
  ComPtr<ICreateTypeInfo> type;
  HRESULT result = library.CreateTypeInfo(Name(name), kind, type.Put());
  if (FAILED(result)) return {};
  type->SetGuid(iid);
  type->SetTypeFlags(TYPEFLAG_FDISPATCHABLE);
  result = Inherit(*type.Get());
  if (SUCCEEDED(result) && kind == TKIND_DISPATCH) result = fill(*type.Get(), behaviour);
  if (SUCCEEDED(result)) result = type->LayOut();
  return SUCCEEDED(result) ? type.As<ITypeInfo>() : ComPtr<ITypeInfo>();
}

ComPtr<ITypeInfo> AddClass(ICreateTypeLib2& library, ITypeInfo* members, ITypeInfo* events) {
  ComPtr<ICreateTypeInfo> type;
  HREFTYPE reference = 0;
  HRESULT result = library.CreateTypeInfo(Name(L"StandIn"), TKIND_COCLASS, type.Put());
  if (FAILED(result)) return {};
  type->SetGuid(kStandInClass);
  result = type->AddRefTypeInfo(members, &reference);
  if (SUCCEEDED(result)) result = type->AddImplType(0, reference);
  if (SUCCEEDED(result)) result = type->SetImplTypeFlags(0, IMPLTYPEFLAG_FDEFAULT);
  if (SUCCEEDED(result)) result = type->AddRefTypeInfo(events, &reference);
  if (SUCCEEDED(result)) result = type->AddImplType(1, reference);
  if (SUCCEEDED(result)) result = type->SetImplTypeFlags(1, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE);
  if (SUCCEEDED(result)) result = type->LayOut();
  return SUCCEEDED(result) ? type.As<ITypeInfo>() : ComPtr<ITypeInfo>();
}

}  // namespace

std::span<const Member> Events() { return kEvents; }

const Member* FindMember(DISPID number) {
  for (const Member& member : kMembers) {
    if (member.number == number) return &member;
  }
  return nullptr;
}

VARTYPE IntegerType(const Behaviour& behaviour) {
  if (behaviour.Is("bytes")) return VT_UI1;
  return behaviour.Is("short") ? VT_I2 : VT_I4;
}

TypeLibrary BuildTypeLibrary(const Behaviour& behaviour) {
  ComPtr<ICreateTypeLib2> library;
  // Never saved, so no file of this name is created.
  if (FAILED(::CreateTypeLib2(SYS_WIN32, L"standin.tlb", library.Put()))) return {};
  library->SetGuid(kStandInLibrary);
  library->SetName(Name(L"StandInLibrary"));
  library->SetVersion(1, 0);
  TypeLibrary types;
  types.members =
      AddInterface(*library.Get(), TKIND_DISPATCH, L"StandInMembers", kStandInMembers, AddMembers, behaviour);
  const auto events =
      AddInterface(*library.Get(), behaviour.Is("custom-events") ? TKIND_INTERFACE : TKIND_DISPATCH,
                   L"StandInEvents", kStandInEvents, AddEvents, behaviour);
  if (types.members && events) types.classInfo = AddClass(*library.Get(), types.members.Get(), events.Get());
  return types;
}

}  // namespace orvenza::test
