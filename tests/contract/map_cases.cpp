// SPDX-License-Identifier: GPL-2.0-or-later
// Changes of the map: layers and tables that come and go, frames, extents, layer files, windows.
#include "platform/windows.h"
#include "tests/contract/contract.h"
#include "toolkit/form.h"

namespace brelmon::contract {
namespace {

void DeletedLayersFail(World& world) {
  const Ref<IMap> map = world.Document()->FocusMap();
  const Ref<ILayer> storms = LayerNamed(world, u"storms");
  map->DeleteLayer(storms);
  map->DeleteLayer(storms);  // the map holds it no longer: nothing happens
  const Ref<IEnumLayer> layers = map->Layers({}, true);
  while (const Ref<ILayer> layer = layers->Next()) Expect(!Same(layer, storms), "a deleted layer");
  Expect(!storms->Valid(), "a deleted layer is not valid");
  ExpectFailure(
      failure::kNoSuchObject, [&] { storms.As<ITable>()->RowCount({}); },
      "rows of a deleted layer");
  const auto tables = map.As<IStandaloneTableCollection>();
  const Ref<IStandaloneTable> weather = TableNamed(world, u"weather");
  const std::int32_t before = tables->StandaloneTableCount();
  tables->RemoveStandaloneTable(weather);
  Expect(tables->StandaloneTableCount() == before - 1, "tables left");
  ExpectFailure(
      failure::kNoSuchObject, [&] { weather.As<ITable>()->Search({}, true); },
      "rows of a removed table");
}

void NewFrames(World& world) {
  const Ref<IMaps> maps = world.Document()->Maps();
  const Ref<IMap> first = world.Document()->FocusMap();
  const Ref<IMap> created = maps->Create();
  ExpectEqual(maps->Count(), 2, "a created frame is no member yet");
  created->SetName(u"Layers");
  maps->Add(created);
  ExpectEqual(maps->Item(2)->Name(), u"Layers", "the added frame");
  ExpectEqual(maps->Item(2)->LayerCount(), 0, "its layers");
  for (const auto& uid : {Ref<UID>(), New<UID>(Text(kFeatureLayerUID))}) {
    ExpectFailure(
        failure::kRefused, [&] { created->Layers(uid, true); }, "layers of an empty frame");
  }
  ExpectFailure(
      failure::kRefused, [&] { first->Layers(New<UID>(u"{0}"), true); }, "layers of no kind");
  maps->Add(created);
  ExpectEqual(maps->Count(), 3, "a member is left where it is");
  world.Document()->SetActiveView(maps->Item(2).As<IActiveView>());
  Expect(Same(world.Document()->FocusMap(), created), "the frame that was made active");
  maps->Remove(created);
  ExpectEqual(maps->Count(), 2, "frames left");
  Expect(static_cast<bool>(world.Document()->FocusMap()), "some frame has the focus");
}

void Extents(World& world) {
  const Ref<IActiveView> view = world.Document()->ActiveView();
  double xMin = 0, yMin = 0, xMax = 0, yMax = 0;
  view->FullExtent()->QueryCoords(xMin, yMin, xMax, yMax);
  Expect(xMin < -170 && xMax > 170 && yMin < -80 && yMax > 80, "the full extent of the earth");
  const Ref<IEnvelope> envelope = world.Objects().NewEnvelope();
  envelope->PutCoords(10, 20, 30, 40);
  view->ScreenDisplay()->DisplayTransformation()->SetVisibleBounds(envelope);
  view->PartialRefresh(DrawPhase::GeographyAndSelection, {}, {});
  view->Extent()->QueryCoords(xMin, yMin, xMax, yMax);
  Expect(xMin <= 10.0001 && yMin <= 20.0001 && xMax >= 29.9999 && yMax >= 39.9999,
         "what was to be seen can be seen");
  ExpectEqual((xMin + xMax) / 2, 20.0, "the middle of the view");
}

void LayerFiles(World& world) {
  const Ref<IGxLayer> file = world.Objects().NewGxLayer();
  const Text path = ModuleFolder(world) + u"layers\\strong_quakes.qlr";
  file.As<IGxFile>()->SetPath(path);
  ExpectEqual(file.As<IGxObject>()->FullName(), path, "the file's path");
  const Ref<ILayer> layer = file->Layer();
  ExpectEqual(layer->Name(), u"Strong quakes", "the layer's name");
  Expect(layer->Valid(), "its data is there");
  const std::int32_t rows = layer.As<ITable>()->RowCount({});
  Expect(rows > 0 && rows < 1707, "its filter holds");
  const Ref<IMap> map = world.Document()->FocusMap();
  map->AddLayer(layer);
  ExpectEqual(map->LayerCount(), 6, "layers with the new one");
  ExpectEqual(map->Layers({}, true)->Next()->Name(), u"Strong quakes", "a new layer lies on top");
  const Ref<IGxLayer> missing = world.Objects().NewGxLayer();
  missing.As<IGxFile>()->SetPath(ModuleFolder(world) + u"layers\\none.qlr");
  bool failed = false;
  try {
    missing->Layer();
  } catch (const Failure& failure) {
    failed = !failure.Description.empty();
  }
  Expect(failed, "a layer file that isn't there");
}

void TableWindows(World& world) {
  const Ref<IFeatureLayer> quakes = LayerNamed(world, u"quakes").As<IFeatureLayer>();
  const Ref<ITableWindow> window = world.Objects().NewTableWindow();
  Expect(!window->FindViaFeatureLayer(quakes, false), "no window is open");
  window->SetFeatureLayer(quakes);
  window->SetApplication(world.Application());
  window.As<ITableWindow2>()->SetTableSelectionAction(2);
  window.As<ITableWindow2>()->SetLayerDisplay(true);
  window->Show(true);
  const Ref<ITableWindow> found =
      world.Objects().NewTableWindow()->FindViaFeatureLayer(quakes, false);
  Expect(static_cast<bool>(found), "the open window is found");
  found->Show(true);
  const auto weather = TableNamed(world, u"weather");
  Expect(!world.Objects().NewTableWindow()->FindViaStandaloneTable(weather, false),
         "another table's window is not open");
  found->Unload();
  Expect(!world.Objects().NewTableWindow()->FindViaFeatureLayer(quakes, false), "it is closed");
}

class Sized : public Form {
 public:
  Sized() : Form(u"frmSized") {}
  void Design() override { Form::Design(u"Sized", 1012.5F, 1005, false); }
};

void FramesInPixels(World& world) {
  const auto form = New<Sized>();
  const Ref<IModelessFrame> frame = world.Objects().NewModelessFrame();
  frame->Create(form);
  Expect(!frame->Visible(), "a new frame is hidden");
  ExpectEqual(frame.As<IWindowPosition>()->Width(), 68, "pixels are rounded");
  ExpectEqual(frame.As<IWindowPosition>()->Height(), 67, "whole pixels");
}

}  // namespace

std::vector<Case> MapCases() {
  return {AnyWorld("deleted layers fail", DeletedLayersFail),
          AnyWorld("new frames", NewFrames),
          {"extents", Extents},
          {"layer files", LayerFiles},
          AnyWorld("table windows", TableWindows),
          {"frames in pixels", FramesInPixels}};
}

}  // namespace brelmon::contract
