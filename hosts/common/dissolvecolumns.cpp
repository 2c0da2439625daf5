// SPDX-License-Identifier: GPL-2.0-or-later
// What a data source tells of the columns behind the fields to dissolve.
#include "hosts/common/dissolvecolumns.h"

#include <ogrsf_frmts.h>

namespace brelmon::host {

std::string ReadColumns(OGRLayer& source, std::vector<DissolveField>& fields) {
  const OGRFeatureDefn& definition = *source.GetLayerDefn();
  for (DissolveField& field : fields) {
    const int index = definition.GetFieldIndex(field.Name.c_str());
    if (index < 0) continue;
    field.Width = definition.GetFieldDefn(index)->GetWidth();
    field.Decimals = definition.GetFieldDefn(index)->GetPrecision();
  }
  const char* encoding = source.GetMetadataItem("SOURCE_ENCODING", "SHAPEFILE");
  return encoding && *encoding != '\0' ? encoding : "UTF-8";
}

}  // namespace brelmon::host
