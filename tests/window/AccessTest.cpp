#include <map>

#include "palette/Catalogue.h"
#include "tests/window/DesktopSession.h"

namespace morvane {
namespace {

using Lines = std::vector<std::string>;

/// All that a window tells; mere holders of other controls tell nothing.
Lines ControlsOf(const char* window) {
  Lines lines;
  Walk(WindowOf(window), [&lines](const AccessibleObject& control) {
    if (control.Role() != ATSPI_ROLE_FILLER) lines.push_back(control.Line());
  });
  return lines;
}

void Append(Lines& lines, const Lines& more) {
  lines.insert(lines.end(), more.begin(), more.end());
}

const Lines kColumn = {
    "push button Mode = Tile",
    "label Mode:",
    "label Tile",
    "label Selected Tile:",
    "label Selected Tile: Floor",
    "image Selected tile = 20 x 20 pixels",
    "push button Flip Vertical",
    "push button Flip Horizontal",
    "push button Rotate Left",
    "push button Rotate Right",
    "label Tileset:",
};
const Lines kButtons = {"push button Mode = Tile", "push button Flip Vertical",
                        "push button Flip Horizontal", "push button Rotate Left",
                        "push button Rotate Right"};
const Lines kMap = {"canvas Map = 615 x 483 pixels"};

TEST_F(DesktopSession, TheWindowTellsWhatItHolds) {
  Lines expected = {"frame Morvane", "tool bar Commands"};
  for (const char* key : {"New", "Open", "Save", "Print", "Undo", "Redo", "Cut", "Copy", "Paste"}) {
    expected.push_back(std::string("push button ") + key);
  }
  Append(expected, {"status bar ", "notification " + kGreeting});
  Append(expected, kColumn);
  Append(expected,
         {"combo box Tileset: = Abandoned Cathedral", "page tab list Pages",
          "page tab Tiles = selected", "page tab Furniture", "page tab Various", "panel Tiles"});
  for (const Item& item : Items()) {
    if (item.set != kAbandonedCathedral || item.page != 1) continue;
    const Size size = StampSize(item);
    expected.push_back("push button " + std::string(item.caption) + " = " +
                       std::to_string(size.width) + " x " + std::to_string(size.height) +
                       " pixels");
  }
  Append(expected, kMap);
  Append(expected, {"menu bar Menu", "menu item File", "menu item Edit", "menu item View",
                    "menu item Tools", "menu item Help"});
  EXPECT_EQ(ControlsOf("Morvane"), expected);
}

TEST_F(DesktopSession, TabGoesRoundTheWindow) {
  Lines tabs = {"push button New"};
  Append(tabs, kButtons);
  Append(tabs, {"combo box Tileset: = Abandoned Cathedral", "page tab Tiles = selected",
                "push button Floor = 20 x 20 pixels"});
  Append(tabs, kMap);
  EXPECT_EQ(Round("Morvane"), tabs);

  Key({"shift+Tab", "shift+Tab", "shift+Tab", "shift+Tab", "End"});
  ASSERT_TRUE(AwaitFocus("combo box Tileset: = Custom")) << Focus();
  Lines lists = {"combo box Drive = /", "list Folder", "list Custom tile pictures"};
  Append(lists, kMap);
  lists.emplace_back("push button New");
  Append(lists, kButtons);
  lists.emplace_back("combo box Tileset: = Custom");
  EXPECT_EQ(Round("Morvane"), lists);
}

TEST_F(DesktopSession, TabGoesRoundEachDialog) {
  OpenMenu("alt+t", "menu item Options...");
  Key({"o"});
  EXPECT_EQ(Round("Options"),
            (Lines{"push button Choose the map directory",
                   "text Custom Directory:", "push button Choose the custom directory",
                   "push button Background Color: Palette... = Red 255, green 255, blue 255",
                   "push button Grid Color: Palette... = Red 192, green 192, blue 192",
                   "check box Gridlines = not checked", "push button OK", "push button Cancel",
                   "text Map Directory:"}));
  Key({"Escape"});
  Opened("Morvane");
  OpenMenu("alt+h", "menu item About ");
  Key({"a"});
  EXPECT_EQ(Round("About Morvane"), (Lines{"push button A flagstone", "push button OK"}));
  Key({"Escape"});
  Opened("Morvane");
  Key({"ctrl+t"});
  const AtspiRect map = FocusIn(WindowOf("Morvane")).Place();
  Hand({"mousemove", QString::number(map.x + 100), QString::number(map.y + 100), "click", "1"});
  EXPECT_EQ(Round("Insert Text"), (Lines{"push button OK", "push button Font...", "text Text"}));
  Key({"Tab", "space"});
  EXPECT_EQ(Round("Font"),
            (Lines{"list Font style", "list Size", "check box Strikeout = not checked",
                   "check box Underline = not checked", "text Sample = AaBbYyZz",
                   "combo box Writing System = Any", "combo box Color = Black", "push button OK",
                   "push button Cancel", "list Font"}));
}

TEST_F(DesktopSession, KeysDoWhatTheMouseCan) {
  Key({"shift+Tab", "Right", "Right", "Right", "Down"});
  ASSERT_TRUE(AwaitFocus("push button Small Fountain = 20 x 20 pixels")) << Focus();
  Key({"space"});
  EXPECT_TRUE(AwaitFocus(kMap.front()));
  Key({"shift+Tab", "Home", "Return"});
  EXPECT_TRUE(AwaitFocus(kMap.front()));
  Key({"Tab", "Tab", "Return"});
  EXPECT_TRUE(AwaitFocus("push button Mode = Wall"));
  // Undo switches itself off; the focus stays in the tool bar.
  Key({"shift+Tab", "End", "Left", "Left", "Left", "Left", "space"});
  EXPECT_TRUE(AwaitFocus("push button Redo")) << Focus();
  EXPECT_EQ(notices,
            (Lines{"Small Fountain tile selected", "Floor tile selected", "Wall Mode selected"}));
}

TEST_F(DesktopSession, TheStatusIsSpokenOnceAndHoveringIsSilent) {
  for (int y = 330; y < 600; y += 15) {
    Hand({"mousemove", "--sync", QString::number(280 + y % 60), QString::number(y)});
  }
  Lines expected;
  for (const auto& [key, status] :
       {std::pair("ctrl+m", "Wall Mode selected"), std::pair("Right", "Floor tile rotated"),
        std::pair("Up", "Floor tile flipped")}) {
    Key({key});
    expected.emplace_back(status);
    EXPECT_TRUE(Await([&] { return notices.size() >= expected.size(); }));
    EXPECT_EQ(notices, expected);
  }
}

}  // namespace
}  // namespace morvane
