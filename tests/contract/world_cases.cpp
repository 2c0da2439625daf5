// SPDX-License-Identifier: GPL-2.0-or-later
// What holds whatever the module: tables that are bound, files, modeless frames, what is unset.
#include "platform/windows.h"
#include "platform/workspace.h"
#include "tests/contract/contract.h"
#include "toolkit/form.h"

namespace brelmon::contract {
namespace {

void NewTablesAreBoundOnce(World& world) {
  const Ref<IStandaloneTable> table = world.Objects().NewStandaloneTable();
  Expect(!table->Valid() && !table->Table(), "a new table is bound to nothing");
  ExpectFailure(
      failure::kObjectNotSet, [&] { table->Name(); }, "the name of a new table");
  const Ref<IStandaloneTable> weather = TableNamed(world, u"weather");
  table->SetTable(weather->Table());
  Expect(table->Valid(), "a bound table is valid");
  ExpectEqual(table->Name(), u"weather", "its name");
  ExpectEqual(table->Table()->RowCount({}), weather->Table()->RowCount({}), "its rows");
  ExpectFailure(
      failure::kInvalidCall, [&] { table->SetTable(weather->Table()); }, "binding it again");
}

void FilesComeAndGo(World& world) {
  IFileSystem& files = world.Files();
  const Text folder = ModuleFolder(world), path = folder + u"notes.txt";
  for (const FileMode mode : {FileMode::Input, FileMode::Output, FileMode::Append}) {
    ExpectFailure(
        failure::kPathNotFound, [&] { files.Open(folder + u"nowhere\\notes.txt", mode); },
        "a file in no folder");
  }
  ExpectFailure(
      failure::kFileNotFound, [&] { files.Open(path, FileMode::Input); },
      "a file that isn't there");
  for (const auto& [mode, piece, whole] :
       {std::tuple{FileMode::Output, "one", "one"}, std::tuple{FileMode::Append, "two", "onetwo"},
        std::tuple{FileMode::Output, "three", "three"}}) {
    const auto stream = files.Open(path, mode);
    stream->Write(piece);
    stream->Close();
    ExpectEqual(files.Open(path, FileMode::Input)->Read(100), std::string(whole), "the file");
  }
  ExpectEqual(files.Attributes(path), 0, "it is a file");
}

class Sheet : public Form {
 public:
  Sheet() : Form(u"Sheet") {}

 protected:
  // Two thirds of a pixel more than 200, one third more than 100.
  void Design() override { Form::Design(u"A sheet", 3010, 1505); }
};

void ModelessFrames(World& world) {
  const Ref<IModelessFrame> frame = world.Objects().NewModelessFrame();
  ExpectFailure(
      failure::kInvalidCall, [&] { frame->Create(world.Document()); }, "a frame around a document");
  auto form = New<Sheet>();
  frame->Create(form);
  frame->SetCaption(u"On a sheet");
  ExpectEqual(frame->Caption(), u"On a sheet", "its caption");
  ExpectEqual(frame.As<IWindowPosition>()->Width(), 201, "a size is rounded");
  ExpectEqual(frame.As<IWindowPosition>()->Height(), 100, "to the nearest pixel");
  Expect(!frame->Visible() && !form->Visible(), "it is hidden at first");
  frame->SetVisible(true);
  Expect(frame->Visible() && form->Visible(), "a form in a visible frame is visible");
  const std::weak_ptr<Sheet> watch = form.Shared();
  form.Reset();
  Expect(!watch.expired(), "a visible frame holds its form");
  frame->SetVisible(false);
  Expect(!frame->Visible() && watch.expired(), "a hidden one doesn't");
  ExpectFailure(
      failure::kObjectNotSet, [&] { frame->SetVisible(true); }, "a frame whose form is gone");
}

void WhatIsUnset(World& world) {
  const Ref<IMxDocument> document = world.Document();
  const Ref<IMap> map = document->FocusMap();
  const std::pair<const char*, std::function<void()>> rows[] = {
      {"an unset layer", [&] { map->AddLayer({}); }},
      {"an unset table", [&] { map.As<IStandaloneTableCollection>()->AddStandaloneTable({}); }},
      {"an unset frame", [&] { document->Maps()->Add({}); }},
      {"an unset frame to be removed", [&] { document->Maps()->Remove({}); }},
      {"an unset view", [&] { document->SetCurrentContentsView({}); }},
      {"a table window bound to nothing", [&] { world.Objects().NewTableWindow()->Show(true); }},
  };
  for (const auto& [what, deed] : rows) ExpectFailure(failure::kObjectNotSet, deed, what);
  ExpectFailure(
      failure::kInvalidCall,
      [&] { document->SetActiveView(document->Maps()->Create().As<IActiveView>()); },
      "a view of no frame of the document");
  ExpectFailure(
      failure::kSubscript, [&] { document->ContentsView(9); }, "a contents view out of bounds");
  const Ref<IDataStatistics> statistics = world.Objects().NewDataStatistics();
  statistics->SetField(u"MAG");
  ExpectFailure(
      failure::kInvalidCall, [&] { statistics->UniqueValues(); }, "unique values of no cursor");
}

}  // namespace

std::vector<Case> WorldCases() {
  return {AnyWorld("new tables are bound once", NewTablesAreBoundOnce),
          AnyWorld("files come and go", FilesComeAndGo),
          AnyWorld("modeless frames", ModelessFrames), AnyWorld("what is unset", WhatIsUnset)};
}

}  // namespace brelmon::contract
