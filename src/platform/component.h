// SPDX-License-Identifier: GPL-2.0-or-later
// The contract between a host and the component: classes, commands, the toolbar, the exports.
#pragma once

#include <array>
#include <cstdint>

#include "platform/contract.h"
#include "platform/object.h"
#include "platform/services.h"

namespace brelmon {

/// A class or interface identifier.
struct Guid {
  std::uint32_t Data1 = 0;
  std::uint16_t Data2 = 0;
  std::uint16_t Data3 = 0;
  std::array<std::uint8_t, 8> Data4{};
  bool operator==(const Guid&) const = default;
};

/// The identifier whose text form has these five groups of digits.
constexpr Guid GuidOf(std::uint32_t first, std::uint16_t second, std::uint16_t third,
                      std::uint16_t fourth, std::uint64_t fifth) {
  Guid id{first, second, third, {}};
  const std::uint64_t last = std::uint64_t{fourth} << 48 | fifth;
  for (std::size_t i = 0; i < id.Data4.size(); ++i) {
    id.Data4[i] = static_cast<std::uint8_t>(last >> (56 - 8 * i));
  }
  return id;
}

/// "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}", and back; false for a text of any other form.
Text ToText(const Guid& guid);
bool ToGuid(TextView text, Guid& guid);

/// Pictures are handed out as handles of 32 bits; a handle opens to a bitmap file in memory.
class ICommand : public virtual IObject {
 public:
  virtual bool Enabled() = 0;
  virtual bool Checked() = 0;
  virtual Text Name() = 0;
  virtual Text Caption() = 0;
  virtual Text Tooltip() = 0;
  virtual Text Message() = 0;
  virtual Text HelpFile() = 0;
  virtual std::int32_t HelpContextID() = 0;
  virtual std::int32_t Bitmap() = 0;
  virtual Text Category() = 0;
  virtual void OnCreate(const Ref<IObject>& hook) = 0;
  virtual void OnClick() = 0;
};

class IItemDef : public virtual IObject {
 public:
  virtual void SetID(const Text& progId) = 0;
  virtual void SetGroup(bool group) = 0;
  virtual void SetSubType(std::int32_t subType) = 0;
};

class IToolBarDef : public virtual IObject {
 public:
  virtual std::int32_t ItemCount() = 0;
  virtual void GetItemInfo(std::int32_t pos, const Ref<IItemDef>& itemDef) = 0;
  virtual Text Name() = 0;
  virtual Text Caption() = 0;
};

/// Makes objects of one class.
class IClassFactory {
 public:
  virtual ~IClassFactory() = default;
  virtual Ref<IObject> CreateInstance() = 0;
};

/// Where a host hands over its services, before it asks for any class.
class IServiceSink {
 public:
  virtual ~IServiceSink() = default;
  /// `libraryPath` is what the component registers itself under.
  virtual void Attach(const Services& services, const Text& libraryPath) = 0;
  /// Lets go of the services and of everything kept for the process.
  virtual void Detach() = 0;
  /// The bytes of a picture handle: a bitmap file of 24 bits. Empty if unknown.
  virtual std::string PictureBytes(std::int32_t handle) = 0;
  /// The same subject as SVG; empty if there is none.
  virtual std::string PictureDrawing(std::int32_t handle) = 0;
};

inline constexpr Guid kIID_IClassFactory = GuidOf(0x00000001, 0x0000, 0x0000, 0xC000, 0x46);
/// Ends in the number of the contract: a component that was built against another platform than
/// the host has no such interface.
inline constexpr Guid kIID_IServiceSink =
    GuidOf(0x5B1E9A42, 0x7C3D, 0x4F16, kContract >> 48, kContract & 0xFFFFFFFFFFFF);

/// Results of the exports.
namespace hresult {
inline constexpr std::int32_t kOk = 0;
inline constexpr std::int32_t kFalse = 1;
inline constexpr std::int32_t kFail = static_cast<std::int32_t>(0x80004005u);
inline constexpr std::int32_t kNoInterface = static_cast<std::int32_t>(0x80004002u);
inline constexpr std::int32_t kPointer = static_cast<std::int32_t>(0x80004003u);
inline constexpr std::int32_t kClassNotAvailable = static_cast<std::int32_t>(0x80040111u);
}  // namespace hresult

/// Signatures of the four exports. `*object` is an IClassFactory* for a class, an IServiceSink*
/// for kIID_IServiceSink (any class identifier); both live as long as the library. Any other
/// interface, a sink of another contract among them, gives kNoInterface.
using DllGetClassObjectFn = std::int32_t (*)(const Guid* classId, const Guid* interfaceId,
                                             void** object);
using DllCanUnloadNowFn = std::int32_t (*)();
using DllRegisterServerFn = std::int32_t (*)();
using DllUnregisterServerFn = std::int32_t (*)();

}  // namespace brelmon
