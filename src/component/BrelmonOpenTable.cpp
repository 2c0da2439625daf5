// SPDX-License-Identifier: GPL-2.0-or-later
// The component's four exports. No failure leaves them: they answer by number.
#include <string>
#include <vector>

#include "component/classes.h"
#include "component/registration.h"
#include "frame/errorhandling.h"
#include "frame/guard.h"
#include "frame/resources.h"

#define BRELMON_EXPORT extern "C" __attribute__((visibility("default")))

namespace {

using namespace brelmon;

class ClassFactory final : public IClassFactory {
 public:
  explicit ClassFactory(const ClassEntry& entry) : entry_(entry) {}
  Ref<IObject> CreateInstance() override { return entry_.Make(); }

 private:
  const ClassEntry& entry_;
};

class ServiceSink final : public IServiceSink {
 public:
  void Attach(const Services& services, const Text& libraryPath) override {
    SetServices(services);
    libraryPath_ = libraryPath;
    attached_ = true;
  }
  void Detach() override {
    ErrorHandling::Reset();
    SetServices({});
    attached_ = false;
  }
  std::string PictureBytes(std::int32_t handle) override {
    return std::string(ResourceBytes(std::to_string(handle) + ".bmp"));
  }
  std::string PictureDrawing(std::int32_t handle) override {
    return std::string(ResourceBytes(std::to_string(handle) + ".svg"));
  }
  bool Attached() const { return attached_; }
  const Text& LibraryPath() const { return libraryPath_; }

 private:
  Text libraryPath_;
  bool attached_ = false;
};

ServiceSink& TheSink() {
  static ServiceSink sink;
  return sink;
}

/// One factory a class, for the life of the library.
IClassFactory* FactoryOf(const Guid& classId) {
  static auto factories = [] {
    std::vector<ClassFactory> made;
    for (const ClassEntry& entry : Classes()) made.emplace_back(entry);
    return made;
  }();
  for (std::size_t i = 0; i < factories.size(); ++i) {
    if (Classes()[i].Id == classId) return &factories[i];
  }
  return nullptr;
}

std::int32_t Answer(std::int32_t failureNumber) {
  return failureNumber == 0 ? hresult::kOk : hresult::kFail;
}

}  // namespace

BRELMON_EXPORT std::int32_t DllGetClassObject(const Guid* classId, const Guid* interfaceId,
                                              void** object) {
  if (!classId || !interfaceId || !object) return hresult::kPointer;
  *object = nullptr;
  if (*interfaceId == kIID_IServiceSink) {
    *object = static_cast<IServiceSink*>(&TheSink());
    return hresult::kOk;
  }
  if (*interfaceId != kIID_IClassFactory) return hresult::kNoInterface;
  IClassFactory* factory = FactoryOf(*classId);
  if (!factory || !TheSink().Attached()) return hresult::kClassNotAvailable;
  *object = factory;
  return hresult::kOk;
}

BRELMON_EXPORT std::int32_t DllCanUnloadNow() {
  return LiveObjects() == 0 ? hresult::kOk : hresult::kFalse;
}

BRELMON_EXPORT std::int32_t DllRegisterServer() {
  return Answer(Guard::Ignore([] { RegisterClasses(TheSink().LibraryPath()); }));
}

BRELMON_EXPORT std::int32_t DllUnregisterServer() {
  return Answer(Guard::Ignore([] { UnregisterClasses(); }));
}
