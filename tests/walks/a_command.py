#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-2.0-or-later
"""Follows "A command" of CONTRIBUTING.md in a copy of the sources: one more command, on the bar, with
a rule of its own. What the steps touch is compiled, and linked in front of the rooms as they are; the
component's own test must pass. A step that is left out must be told of.

a_command.py TOP FOLDER EMBED COMPILER FLAGS ROOMS TESTROOMS: lists are parted by ';'."""
import os
import pathlib
import shutil
import subprocess
import sys

top, folder, embed, compiler = (pathlib.Path(word) for word in sys.argv[1:5])
flags, rooms, test_rooms = (word.split(";") for word in sys.argv[5:8])
copy = folder / "copy"
os.environ["LC_ALL"] = "C"
shutil.rmtree(folder, ignore_errors=True)
for part in ("src", "tests/component", "tests/support", "hosts/common"):
    shutil.copytree(top / part, copy / part)


def edit(name, before, added, behind=False):
    """Puts a text in front of another, or behind it."""
    path = copy / name
    text = path.read_text()
    assert text.count(before) == 1, f"{name}: {text.count(before)} of {before!r}"
    path.write_text(text.replace(before, before + added if behind else added + before))


def compiled(name):
    target = folder / (name.replace("/", "_") + ".o")
    source = folder / name if (folder / name).exists() else copy / name
    command = [compiler, *flags, "-fPIC", f"-I{copy}/src", f"-I{copy}", f"-I{folder.parents[2]}/generated",
               f'-DBRELMON_COMPONENT="{folder}/component.so"', f'-DBRELMON_SOURCE_DIR="{copy}"',
               "-c", source, "-o", target]
    return subprocess.run(command, capture_output=True, text=True), target


def must_compile(name):
    run, target = compiled(name)
    assert run.returncode == 0, run.stderr
    return target


def must_tell(name, words):
    run, _ = compiled(name)
    assert run.returncode != 0 and words in run.stderr, f"{name} compiled without: {words}\n{run.stderr}"


# 1. A row behind the others; a rule and its case.
row = """    {u"cmdWalk", GuidOf(0x5D3C1E52, 0x6A41, 0x4B0E, 0x8D3A, 0x1F6C2A90B7E4), %d,
     u"BrelmonCommands_Walk", u"Walk", u"Walk", u"Walks...", kCategory, EnabledRule::TwoFrames},
"""
end_of_rows = "};\n\ninline constexpr ToolBarItem kItems[] = {\n"
edit("src/frame/commandtable.h", "  AnySelection,\n", "  TwoFrames,\n", behind=True)
edit("src/frame/documentmodel.cpp", "      return AnySelection(document);\n",
     "    case EnabledRule::TwoFrames:\n      return document->Maps()->Count() == 2;\n", behind=True)
edit("src/frame/commandrows.h", end_of_rows, row % 122)
must_tell("src/frame/commandtable.cpp", "the rows stand in order of their bitmaps")
rows = copy / "src/frame/commandrows.h"
rows.write_text(rows.read_text().replace(row % 122, row % 121))
# 3, left out: the row has no maker.
must_tell("src/component/classes.cpp", "each row of the command table has its maker")
# 2. A class with its OnClick.
(copy / "src/layertools/cmdWalk.h").write_text("""#pragma once
#include "frame/command.h"
namespace brelmon {
class cmdWalk : public BrelmonCommand {
 public:
  cmdWalk() : BrelmonCommand(u"cmdWalk") {}
  void OnClick() override;
};
}  // namespace brelmon
""")
(copy / "src/layertools/cmdWalk.cpp").write_text("""#include "layertools/cmdWalk.h"
#include "platform/services.h"
namespace brelmon {
void cmdWalk::OnClick() {
  Guard::PlainBox([&] { MsgBox(m_pMxDoc->FocusMap()->Name()); });
}
}  // namespace brelmon
""")
# 3. Its maker.
edit("src/component/classes.cpp", '    {u"cmdAbout", Make<cmdAbout>},\n',
     '    {u"cmdWalk", Make<cmdWalk>},\n', behind=True)
edit("src/component/classes.cpp", '#include "layertools/cmdSummarize.h"\n',
     '#include "layertools/cmdWalk.h"\n', behind=True)
# 4. Its pictures.
pictures = copy / "src/frame/resources"
for kind in ("bmp", "svg"):
    shutil.copy(pictures / f"120.{kind}", pictures / f"121.{kind}")
(folder / "list").write_text(";".join(str(path) for path in sorted(pictures.iterdir())))
subprocess.run(["cmake", f"-DLIST={folder}/list", f"-DSOURCE={folder}/resources.cpp", "-P", embed],
               check=True)
# 5. Its place on the bar.
edit("src/frame/commandrows.h", '{u"cmdAbout", true},\n', ' {u"cmdWalk", false},\n', behind=True)
# 6. What the component's test says of the toolbar.
test = copy / "tests/component/component_test.cpp"
test.write_text(test.read_text().replace("ids.size(), 21u", "ids.size(), 22u")
                .replace("| cmdAbout ", "| cmdAbout cmdWalk ") + """
namespace brelmon {
namespace {
TEST_F(Component, WalksAsItsRuleSays) {
  const auto command = Create(u"cmdWalk").As<ICommand>();
  command->OnCreate(world.application);
  EXPECT_FALSE(command->Enabled());
  world.document->AddMap(u"Second");
  EXPECT_TRUE(command->Enabled());
  EXPECT_EQ(Sink()->PictureBytes(command->Bitmap()).substr(0, 2), "BM");
  command->OnClick();
  EXPECT_EQ(Boxes(world), "[BrelmonOpenTable] Layers\\n");
}
}  // namespace
}  // namespace brelmon
""")

component = [must_compile(name) for name in (
    "src/frame/commandtable.cpp", "src/frame/documentmodel.cpp", "src/frame/toolBarBrelmon.cpp",
    "src/layertools/cmdWalk.cpp", "resources.cpp", *(f"src/component/{path.name}" for path in
                                                     sorted((copy / "src/component").glob("*.cpp"))))]
link = [compiler, *[flag for flag in flags if flag.startswith("-fsan")]]
subprocess.run([*link, "-shared", *component, *rooms, "-Wl,--no-undefined",
                f"-Wl,--version-script={copy}/src/component/exports.map", "-o", folder / "component.so"],
               check=True)
subprocess.run([*link, must_compile("tests/component/component_test.cpp"), *test_rooms, "-lgtest",
                "-lgtest_main", "-ldl", "-lpthread", "-o", folder / "test"], check=True)
sys.exit(subprocess.run([folder / "test", "--gtest_brief=1"], check=False).returncode)
