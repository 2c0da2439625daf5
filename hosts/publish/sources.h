// SPDX-License-Identifier: GPL-2.0-or-later
// The tables of a publication, each written once however many layers show it.
#pragma once

#include <map>
#include <string>

#include "hosts/headless/table.h"
#include "hosts/publish/json.h"
#include "hosts/publish/modulefolder.h"
#include "hosts/publish/outputfolder.h"
#include "hosts/publish/report.h"

namespace brelmon::publish {

/// Whether a page, which has no database to ask, finds the rows of a clause.
bool PageEvaluates(const data::TableSource& source, const Text& clause);

class Sources {
 public:
  /// Shapes go into `crs`, which may be null. All outlive it.
  Sources(const ModuleFolder& module, const OGRSpatialReference* crs, const OutputFolder& output,
          Report& report)
      : module_(module), crs_(crs), output_(output), report_(report) {}

  /// The name under which a layer's or table's data stand in All(); written now if it is new.
  /// `item` is the layer's name in the report.
  std::string NameOf(headless::IHostTable& table, const std::string& item);
  const Json& All() const { return all_; }
  std::int64_t Rows() const { return rows_; }
  /// All that were reached.
  const std::vector<std::shared_ptr<data::TableSource>>& Reached() const { return reached_; }

 private:
  /// Why the data can't be published, empty if they can.
  std::string ProblemOf(const data::TableSource& source, const std::string& item);
  Json Told(headless::IHostTable& table, const std::string& name, const std::string& item);
  void WriteRows(headless::IHostTable& table, const std::string& name, const std::string& item,
                 Json& json);

  const ModuleFolder& module_;
  const OGRSpatialReference* crs_;
  const OutputFolder& output_;
  Report& report_;
  std::map<std::string, std::string> names_;  // by all that makes the data what they are
  Json all_ = Json::object();
  std::int64_t rows_ = 0;
  std::vector<std::shared_ptr<data::TableSource>> reached_;
};

/// A file's name out of any text: ASCII letters, digits, '_' and '-', and a number that no other
/// has.
std::string FileNameOf(const std::string& text, std::size_t number);

}  // namespace brelmon::publish
