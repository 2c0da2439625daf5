// SPDX-License-Identifier: GPL-2.0-or-later
// Fields, their types and how they are shown; what sources are called.
#include "platform/workspace.h"
#include "tests/contract/contract.h"

namespace brelmon::contract {
namespace {

/// "NAME:TYPE " for each field, aliases in parentheses where they differ, hidden ones with a minus.
Text Described(const Ref<IObject>& table) {
  const Ref<ITableFields> fields = table.As<ITableFields>();
  Text text;
  for (std::int32_t i = 0; i < fields->FieldCount(); ++i) {
    const Ref<IField> field = fields->Field(i);
    const Ref<IFieldInfo> info = fields->FieldInfo(i);
    const auto type = static_cast<std::int32_t>(field->Type());
    text += field->Name() + u":" + Text(1, static_cast<char16_t>(u'0' + type));
    if (info->Alias() != field->Name()) text += u"(" + info->Alias() + u")";
    text += info->Visible() ? u" " : u"- ";
  }
  return text;
}

void TypesAliasesHidden(World& world) {
  ExpectEqual(Described(LayerNamed(world, u"quakes")),
              u"MAG:3 DEPTH_KM:3 PLACE:4(Place) DAY:5 NET:4 MAGTYPE:4 KIND:4 SIG:1- STATIONS:1 "
              u"GAP_DEG:3 DMIN_DEG:3 RMS_S:3 ",
              "quakes");
  ExpectEqual(Described(LayerNamed(world, u"Stations")),
              u"fid:6 NAME:4 ELEV_M:3 OPENED:5 READINGS:3 ", "Stations");
  ExpectEqual(Described(LayerNamed(world, u"countries")),
              u"NAME:4 ISO_A3:4 CONTINENT:4 SUBREGION:4 POP_EST:3(Population) GDP_MD:1 "
              u"INCOME_GRP:4 LASTCENSUS:1 ",
              "countries");
}

void FindingFields(World& world) {
  const Ref<IClass> quakes = LayerNamed(world, u"quakes").As<IClass>();
  ExpectEqual(quakes->FindField(u"depth_km"), 1, "a field regardless of case");
  ExpectEqual(quakes->FindField(u"Place "), -1, "no field");
  ExpectEqual(quakes->Fields()->Field(8)->Name(), u"STATIONS", "a field by index");
  const auto layerFields = LayerNamed(world, u"quakes").As<ILayerFields>();
  ExpectFailure(
      failure::kSubscript, [&] { layerFields->Field(12); }, "a field out of bounds");
  ExpectFailure(
      failure::kSubscript, [&] { layerFields->FieldInfo(-1); }, "a field below 0");
}

void SourcesByName(World& world) {
  ExpectEqual(LayerNamed(world, u"quakes").As<IFeatureLayer>()->DataSourceType(),
              u"Shapefile Feature Class", "shapefile");
  ExpectEqual(LayerNamed(world, u"Stations").As<IFeatureLayer>()->DataSourceType(),
              u"GeoPackage Feature Class", "GeoPackage");
  const auto factory =
      TableNamed(world, u"weather").As<IDataset>()->Workspace()->WorkspaceFactory();
  ExpectEqual(factory->WorkspaceDescription(false), u"Shapefile", "one workspace");
  ExpectEqual(factory->WorkspaceDescription(true), u"Shapefiles", "several workspaces");
}

void Workspaces(World& world) {
  const Text folder = ModuleFolder(world);
  const Ref<IWorkspaceFactory> factory = world.Objects().NewShapefileWorkspaceFactory();
  Expect(factory->IsWorkspace(folder), "a folder can hold tables");
  Expect(!factory->IsWorkspace(folder + u"nowhere"), "no folder can hold none");
  Expect(!factory->IsWorkspace(folder + u"earth.qgs"), "a file is no folder");
  const Ref<IWorkspace> workspace = factory->OpenFromFile(folder, 0);
  Expect(workspace->Exists() && workspace.Offers<IDataset>(), "a workspace");
  Expect(static_cast<bool>(workspace.As<IDataset>()->FullName()), "its full name");
  Expect(!factory->OpenFromFile(folder + u"nowhere\\", 0)->Exists(),
         "a workspace that isn't there");
}

}  // namespace

std::vector<Case> FieldCases() {
  return {{"types, aliases, hidden fields", TypesAliasesHidden},
          {"finding fields", FindingFields},
          {"sources by name", SourcesByName},
          AnyWorld("workspaces", Workspaces)};
}

}  // namespace brelmon::contract
