// SPDX-License-Identifier: GPL-2.0-or-later
// Layers whose data is gone, nulls that stop a run, values that look like "no data".
#include "check/DocumentCheck.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "check/ModuleText.h"
#include "check/SourcesCheck.h"
#include "frame/guard.h"
#include "platform/number.h"
#include "util/aml_func_mod.h"

namespace brelmon {
namespace {

/// A host's word for data that are simply not there.
const Text kNoFile = u"there is no such file";

/// Numbers that authors of data write for "not measured".
constexpr std::array<double, 12> kNoDataCodes = {-9999,  -99999, -999, -99,   -99.9, -999.9,
                                                 -99.99, -32768, 9999, 99999, 999.9, 999};

/// What the check wants to know of one numeric field.
struct FieldValues {
  std::int32_t Index = 0;
  Text Name;
  std::int64_t Nulls = 0;
  std::array<std::int64_t, kNoDataCodes.size()> Codes = {};
  double Largest = 0;  // absolute, of the values that are none of the codes
  bool Others = false;

  void Add(const Value& value) {
    if (value.IsNull()) {
      ++Nulls;
      return;
    }
    const double number = value.ToDouble();
    const auto code = std::find(kNoDataCodes.begin(), kNoDataCodes.end(), number);
    if (code != kNoDataCodes.end()) {
      ++Codes[static_cast<std::size_t>(code - kNoDataCodes.begin())];
    } else {
      Others = true;
      Largest = std::max(Largest, std::abs(number));
    }
  }
};

class DocumentCheck {
 public:
  DocumentCheck(const CheckedModule& module, const Text& directory, std::vector<Finding>& findings)
      : module_(module),
        directory_(directory),
        name_(module.DocumentPath.substr(directory.size())),
        findings_(findings) {
    Guard::Ignore([&] { text_ = ModuleText::Read(*module.Files, module.DocumentPath).Bytes(); });
  }

  void Folder() {
    const Text& directory = directory_;
    const Text taken = ReturnDir(module_.DocumentPath);
    if (taken == directory) return;
    Text mended = directory;
    std::erase(mended, u'\'');
    findings_.push_back(
        {name_, 1, Severity::Fails,
         u"an apostrophe stands in the name of the module's folder, or of one above",
         u"the tools look for QuickLoad.txt and media_list.txt in another folder",
         u"rename the folder: " + NameOf(directory, mended)});
  }

  void Maps() {
    gone_ = CheckSources(module_, directory_, module_.DocumentPath, findings_);
    const auto pMaps = module_.Document->Maps();
    for (std::int32_t index = 0; index < pMaps->Count(); ++index) Map(pMaps->Item(index));
  }

 private:
  /// The first folder of a path that is spelt otherwise when mended.
  static Text NameOf(const Text& path, const Text& mended) {
    const auto apostrophe = path.find(u'\'');
    const auto from = path.rfind(u'\\', apostrophe) + 1;
    return mended.substr(from, mended.find(u'\\', from) - from);
  }

  void Map(const Ref<IMap>& map) {
    Ref<IEnumLayer> layers;
    Guard::Ignore([&] { layers = map->Layers(nullptr, true); });  // fails where there are none
    if (layers) {
      layers->Reset();
      while (const auto layer = layers->Next()) {
        if (!layer->Valid()) {
          Gone(u"layer", layer->Name(), layer);
        } else if (layer.Offers<IFeatureLayer>()) {
          Values(layer->Name(), layer, true);
        }
      }
    }
    const auto tables = map.As<IStandaloneTableCollection>();
    for (std::int32_t index = 0; index < tables->StandaloneTableCount(); ++index) {
      const auto table = tables->StandaloneTable(index);
      if (!table->Valid()) {
        Gone(u"table", table->Name(), table);
      } else {
        Values(table->Name(), table, false);
      }
    }
  }

  void Gone(const Text& kind, const Text& item, const Ref<IObject>& object) {
    if (gone_.count(item) != 0) return;
    const Text reason = module_.Host ? module_.Host->ProblemOf(object) : Text();
    Add(item, Severity::Fails,
        u"the data of the " + kind + u" \"" + item + u"\" is " +
            (reason.empty() || reason == kNoFile ? Text(u"gone") : u"not opened: " + reason),
        u"the tools leave it out or refuse it",
        u"put the data back, mend the " + kind + u"'s filter, or remove it");
  }

  void Values(const Text& item, const Ref<IObject>& object, bool nullsStop) {
    std::vector<FieldValues> fields;
    if (Guard::Ignore([&] { fields = Gather(object); }) != 0) {
      return Add(item, Severity::Fails,
                 u"the records of \"" + item + u"\" can't be read to the end",
                 u"every tool that reads them stops with an error", u"put the data there anew");
    }
    for (const FieldValues& field : fields) {
      if (nullsStop && field.Nulls > 0) {
        Add(item, Severity::Fails,
            u"the field " + field.Name + u" of \"" + item + u"\" is empty (null) in " +
                Count(field.Nulls, u"record"),
            u"Calculate Statistics on all its records stops with an error",
            u"give each record a value, or hide the field");
      }
      NoData(item, field);
    }
  }

  static std::vector<FieldValues> Gather(const Ref<IObject>& object) {
    const auto view = object.As<ITableFields>();
    std::vector<FieldValues> fields;
    for (std::int32_t index = 0; index < view->FieldCount(); ++index) {
      const auto field = view->Field(index);
      if (!FieldIsNumeric(field) || !view->FieldInfo(index)->Visible()) continue;
      fields.emplace_back();
      fields.back().Index = index;
      fields.back().Name = field->Name();
    }
    if (fields.empty()) return fields;
    const auto cursor = object.As<ITable>()->Search(nullptr, true);
    while (const auto row = cursor->NextRow()) {
      for (FieldValues& field : fields) field.Add(row->Value(field.Index));
    }
    return fields;
  }

  /// A code is likely where it lies far beyond everything else that was measured.
  void NoData(const Text& item, const FieldValues& field) {
    for (std::size_t i = 0; i < kNoDataCodes.size(); ++i) {
      const bool far = !field.Others || std::abs(kNoDataCodes[i]) > 2 * field.Largest;
      if (field.Codes[i] == 0 || !far) continue;
      const Text code = GeneralText(kNoDataCodes[i]);
      Add(item, Severity::Note,
          u"the field " + field.Name + u" of \"" + item + u"\" holds " + code + u" in " +
              Count(field.Codes[i], u"record") + u", which looks like \"no data\"",
          u"the statistics count it like any other number",
          u"tell students to ignore the value " + code);
    }
  }

  static Text Count(std::int64_t number, const Text& noun) {
    return GeneralText(static_cast<double>(number)) + u" " + noun + (number == 1 ? u"" : u"s");
  }

  void Add(const Text& item, Severity grade, Text wrong, Text then, Text mended) {
    findings_.push_back(
        {name_, LineOf(item), grade, std::move(wrong), std::move(then), std::move(mended)});
  }

  /// Where the document first names an item, in quotes or as an element, if it is a text at all.
  std::int32_t LineOf(const Text& item) const {
    const std::string name = ToUtf8(item);
    const auto hit = std::min(text_.find("\"" + name + "\""), text_.find(">" + name + "<"));
    if (hit == std::string::npos) return 1;
    return 1 + static_cast<std::int32_t>(std::count(
                   text_.begin(), text_.begin() + static_cast<std::ptrdiff_t>(hit), '\n'));
  }

  const CheckedModule& module_;
  const Text& directory_;
  Text name_;
  std::string text_;
  std::vector<Finding>& findings_;
  std::set<Text> gone_;  // layers that were told of
};

}  // namespace

void CheckDocument(const CheckedModule& module, const Text& directory,
                   std::vector<Finding>& findings) {
  DocumentCheck check(module, directory, findings);
  check.Folder();
  if (module.Document) check.Maps();
}

}  // namespace brelmon
