// SPDX-License-Identifier: GPL-2.0-or-later
// Small objects over a source's fields.
#include "hosts/web/fieldobjects.h"

#include "hosts/common/hostfailure.h"

namespace brelmon::web {
namespace {

const columns::Field& FieldAt(const std::vector<columns::Field>& fields, std::int32_t index) {
  if (index < 0 || static_cast<std::size_t>(index) >= fields.size()) {
    host::Fail(failure::kSubscript);
  }
  return fields[static_cast<std::size_t>(index)];
}

class FieldObject : public IField {
 public:
  explicit FieldObject(const columns::Field& field)
      : name_(FromUtf8(field.Name)), type_(field.Type) {}
  Text Name() override { return name_; }
  FieldType Type() override { return type_; }

 private:
  Text name_;
  FieldType type_;
};

class FieldInfoObject : public IFieldInfo {
 public:
  FieldInfoObject(Text alias, bool visible) : alias_(std::move(alias)), visible_(visible) {}
  Text Alias() override { return alias_; }
  bool Visible() override { return visible_; }

 private:
  Text alias_;
  bool visible_;
};

class FieldsObject : public IFields {
 public:
  explicit FieldsObject(std::shared_ptr<Source> source) : source_(std::move(source)) {}
  std::int32_t FieldCount() override { return static_cast<std::int32_t>(source_->Fields().size()); }
  Ref<IField> Field(std::int32_t index) override { return NewField(source_->Fields(), index); }

 private:
  std::shared_ptr<Source> source_;
};

}  // namespace

Ref<IField> NewField(const std::vector<columns::Field>& fields, std::int32_t index) {
  return New<FieldObject>(FieldAt(fields, index));
}

Ref<IFieldInfo> NewFieldInfo(const std::vector<columns::Field>& fields, std::int32_t index,
                             const ModuleItem& item) {
  const std::string& name = FieldAt(fields, index).Name;
  const auto alias = item.aliases.find(name);
  return New<FieldInfoObject>(FromUtf8(alias == item.aliases.end() ? name : alias->second),
                              item.hidden.count(name) == 0);
}

Ref<IFields> NewFields(std::shared_ptr<Source> source) {
  return New<FieldsObject>(std::move(source));
}

}  // namespace brelmon::web
