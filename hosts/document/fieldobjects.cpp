// SPDX-License-Identifier: GPL-2.0-or-later
// Small objects over a source's fields.
#include "hosts/document/fieldobjects.h"

#include "hosts/common/hostfailure.h"

namespace brelmon::document {
namespace {

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
  explicit FieldsObject(std::shared_ptr<columns::IRowSource> source) : source_(std::move(source)) {}
  std::int32_t FieldCount() override { return static_cast<std::int32_t>(source_->Fields().size()); }
  Ref<IField> Field(std::int32_t index) override { return NewField(FieldAt(*source_, index)); }

 private:
  std::shared_ptr<columns::IRowSource> source_;
};

}  // namespace

Ref<IField> NewField(const columns::Field& field) { return New<FieldObject>(field); }

Ref<IFieldInfo> NewFieldInfo(Text alias, bool visible) {
  return New<FieldInfoObject>(std::move(alias), visible);
}

Ref<IFields> NewFields(std::shared_ptr<columns::IRowSource> source) {
  return New<FieldsObject>(std::move(source));
}

const columns::Field& FieldAt(const columns::IRowSource& source, std::int32_t index) {
  if (index < 0 || static_cast<std::size_t>(index) >= source.Fields().size()) {
    host::Fail(failure::kSubscript);
  }
  return source.Fields()[static_cast<std::size_t>(index)];
}

}  // namespace brelmon::document
