#pragma once

#include <span>

#include "device/windows/com.h"
#include "standin/behaviour.h"

namespace orvenza::test {

inline constexpr const wchar_t* kProgId = L"EcrLinkXControl1.EcrLinkX";
inline constexpr CLSID kStandInClass = {
    0x6E0F7C52, 0x3B1D, 0x4E6A, {0x9C, 0x41, 0x5D, 0x0A, 0x7E, 0x83, 0x12, 0xB4}};
inline constexpr IID kStandInMembers = {
    0x6E0F7C53, 0x3B1D, 0x4E6A, {0x9C, 0x41, 0x5D, 0x0A, 0x7E, 0x83, 0x12, 0xB4}};
inline constexpr IID kStandInEvents = {
    0x6E0F7C54, 0x3B1D, 0x4E6A, {0x9C, 0x41, 0x5D, 0x0A, 0x7E, 0x83, 0x12, 0xB4}};
inline constexpr GUID kStandInLibrary = {
    0x6E0F7C55, 0x3B1D, 0x4E6A, {0x9C, 0x41, 0x5D, 0x0A, 0x7E, 0x83, 0x12, 0xB4}};

/// A member or event of the stand-in. The names differ from those in the program, which must not rely on
/// them.
struct Member {
  DISPID number;
  const wchar_t* name;
  WORD kinds;  ///< DISPATCH_METHOD, or DISPATCH_PROPERTYGET and DISPATCH_PROPERTYPUT.
  VARTYPE type;
};

/// The events in the order of the interface, which differs from the order of their numbers.
std::span<const Member> Events();

/// Null if no member has this number.
const Member* FindMember(DISPID number);

/// The type of the stand-in's integers.
VARTYPE IntegerType(const Behaviour& behaviour);

/// Describes one class of the stand-in to a container.
struct TypeLibrary {
  ComPtr<ITypeInfo> classInfo;
  ComPtr<ITypeInfo> members;
};

/// Builds the descriptions in memory according to `behaviour`. Empty on failure.
TypeLibrary BuildTypeLibrary(const Behaviour& behaviour);

}  // namespace orvenza::test
