// SPDX-License-Identifier: GPL-2.0-or-later
// The exports, called by name.
#include "hosts/web/component.h"

#include "hosts/common/hostfailure.h"

extern "C" {
std::int32_t DllGetClassObject(const brelmon::Guid* classId, const brelmon::Guid* interfaceId,
                               void** object);
std::int32_t DllRegisterServer();
}

namespace brelmon::web {

Component::Component(const Services& services) : registry_(services.registry) {
  const Guid any;
  void* sink = nullptr;
  if (DllGetClassObject(&any, &kIID_IServiceSink, &sink) != hresult::kOk) {
    host::Fail(failure::kCannotCreateObject, "The component takes no services.");
  }
  sink_ = static_cast<IServiceSink*>(sink);
  sink_->Attach(services, u"Z:\\brelmon.wasm");
  if (DllRegisterServer() != hresult::kOk) {
    sink_->Detach();
    host::Fail(failure::kCannotCreateObject, "The component can't register its classes.");
  }
}

Component::~Component() { sink_->Detach(); }

Ref<IObject> Component::CreateObject(const Text& progId) {
  Value registered;
  Guid classId;
  const bool known =
      registry_->Query(RegistryRoot::ClassesRoot, progId + u"\\CLSID", u"", registered);
  Text text = known ? registered.ToText(0) : Text();
  while (!text.empty() && text.back() == u'\0') text.pop_back();
  void* factory = nullptr;
  if (!ToGuid(text, classId) ||
      DllGetClassObject(&classId, &kIID_IClassFactory, &factory) != hresult::kOk) {
    host::Fail(failure::kCannotCreateObject, "The component has no class " + ToUtf8(progId) + ".");
  }
  return static_cast<IClassFactory*>(factory)->CreateInstance();
}

std::string Component::PictureBytes(std::int32_t handle) { return sink_->PictureBytes(handle); }

}  // namespace brelmon::web
