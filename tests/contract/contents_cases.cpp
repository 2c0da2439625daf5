// SPDX-License-Identifier: GPL-2.0-or-later
// Frames, layers and tables of the document; the contents view.
#include "platform/workspace.h"
#include "tests/contract/contract.h"

namespace brelmon::contract {
namespace {

Text NamesOf(const Ref<IEnumLayer>& layers) {
  Text names;
  while (const Ref<ILayer> layer = layers->Next()) {
    names += layer->Name() + (layer->Valid() ? u"" : u"!") + u"|";
  }
  return names;
}

void FramesInOrder(World& world) {
  const Ref<IMaps> maps = world.Document()->Maps();
  ExpectEqual(maps->Count(), 2, "frames");
  ExpectEqual(maps->Item(0)->Name(), u"Earth", "first frame");
  ExpectEqual(maps->Item(1)->Name(), u"Weather and storms", "second frame");
  Expect(Same(world.Document()->FocusMap(), maps->Item(0)), "the visible frame has the focus");
  Expect(Same(world.Document()->ActiveView(), world.Document()->FocusMap()), "the view is the map");
  ExpectFailure(
      failure::kSubscript, [&] { maps->Item(2); }, "a frame out of bounds");
}

void LayersInTreeOrder(World& world) {
  const Ref<IMap> map = world.Document()->FocusMap();
  ExpectEqual(NamesOf(map->Layers({}, true)), u"quakes|Hazards|storms|Stations|countries|Relief|",
              "all layers");
  ExpectEqual(NamesOf(map->Layers({}, false)), u"quakes|Hazards|Stations|countries|Relief|",
              "top-level layers");
  ExpectEqual(NamesOf(map->Layers(New<UID>(Text(kFeatureLayerUID)), true)),
              u"quakes|storms|Stations|countries|", "feature layers");
  ExpectEqual(map->LayerCount(), 5, "LayerCount");
  const auto tables = map.As<IStandaloneTableCollection>();
  ExpectEqual(tables->StandaloneTableCount(), 2, "tables");
  ExpectEqual(tables->StandaloneTable(0)->Name(), u"weather", "first table");
}

void KindsOfItems(World& world) {
  const Ref<ILayer> quakes = LayerNamed(world, u"quakes");
  Expect(quakes.Offers<IFeatureLayer>() && quakes.Offers<IFeatureSelection>() &&
             quakes.Offers<ITableSelection>() && quakes.Offers<ILayerFields>() &&
             quakes.Offers<ITableFields>() && quakes.Offers<ITable>() &&
             quakes.Offers<ITableDefinition>() && quakes.Offers<IClass>() &&
             quakes.Offers<IDataset>() && !quakes.Offers<IStandaloneTable>(),
         "interfaces of a layer");
  const Ref<IStandaloneTable> weather = TableNamed(world, u"weather");
  Expect(weather.Offers<ITableSelection>() && weather.Offers<ITableFields>() &&
             weather.Offers<ITableDefinition>() && weather.Offers<IClass>() &&
             weather.Offers<IDataset>() && !weather.Offers<IFeatureLayer>() &&
             !weather.Offers<ILayerFields>(),
         "interfaces of a table");
  for (const Text& name : {Text(u"Hazards"), Text(u"Relief")}) {
    const Ref<ILayer> other = LayerNamed(world, name);
    Expect(!other.Offers<IFeatureLayer>() && !other.Offers<IStandaloneTable>(), ToUtf8(name));
  }
}

void OneObjectALayer(World& world) {
  const Ref<ILayer> quakes = LayerNamed(world, u"quakes");
  Expect(Same(quakes, LayerNamed(world, u"quakes")), "a layer is one object");
  Expect(!Same(quakes, LayerNamed(world, u"storms")), "two layers are two objects");
  world.Pick({quakes});
  Expect(Same(world.Document()->SelectedItem(), quakes), "the selected item is the layer");
  Expect(Same(TableNamed(world, u"weather"), TableNamed(world, u"weather")),
         "a table is one object");
}

void PickedItems(World& world) {
  const Ref<IMxDocument> document = world.Document();
  world.Pick({});
  Expect(!document->SelectedItem(), "nothing is selected");
  Expect(document->CurrentContentsView()->SelectedItem().IsNull(), "nothing selected is null");
  world.Pick({LayerNamed(world, u"storms")});
  Expect(document->CurrentContentsView()->SelectedItem().ToObject().Offers<IFeatureLayer>(), "one");
  world.Pick({LayerNamed(world, u"quakes"), TableNamed(world, u"weather")});
  const Ref<ISet> set = document->SelectedItem().As<ISet>();
  ExpectEqual(set->Count(), 2, "members of the set");
  set->Reset();
  Expect(set->Next() && set->Next() && !set->Next(), "a set ends");
  document->CurrentContentsView()->RemoveFromSelectedItems(LayerNamed(world, u"quakes"));
  Expect(Same(document->SelectedItem(), TableNamed(world, u"weather")), "the other one is left");
}

void Tabs(World& world) {
  const Ref<IMxDocument> document = world.Document();
  world.SetTab(u"Selection");
  ExpectEqual(document->CurrentContentsView()->Name(), u"Selection", "tab in front");
  ExpectEqual(document->ContentsView(0)->Name(), u"Display", "view 0");
  document->SetCurrentContentsView(document->ContentsView(0));
  ExpectEqual(document->CurrentContentsView()->Name(), u"Display", "tab set by a tool");
}

void PathOfTheDocument(World& world) {
  const Ref<ITemplates> templates = world.Application()->Templates();
  const Text path = templates->Item(templates->Count() - 1);
  Expect(path.substr(0, 3) == u"Z:\\", "the document's path is a Windows path");
  Expect(path.size() > 10 && path.substr(path.size() - 10) == u"\\earth.qgs",
         "the document's path");
  ExpectEqual(world.Files().Attributes(path), 0, "the document is a file");
  ExpectEqual(world.Files().Attributes(path.substr(0, path.size() - 10)), 16, "it is in a folder");
  ExpectFailure(
      failure::kFileNotFound, [&] { world.Files().Attributes(path + u"x"); }, "no file");
}

}  // namespace

std::vector<Case> ContentsCases() {
  return {AnyWorld("frames in order", FramesInOrder),
          {"layers in tree order", LayersInTreeOrder},
          AnyWorld("kinds of items", KindsOfItems),
          AnyWorld("one object a layer", OneObjectALayer),
          AnyWorld("picked items", PickedItems),
          AnyWorld("tabs", Tabs),
          AnyWorld("path of the document", PathOfTheDocument)};
}

}  // namespace brelmon::contract
