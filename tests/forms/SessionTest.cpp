#include "document/MapFiles.h"
#include "document/NewMap.h"
#include "document/Printing.h"
#include "document/Undo.h"
#include "palette/CustomTiles.h"
#include "palette/FlipAndRotate.h"
#include "palette/TileSelection.h"
#include "tests/support/EitherWay.h"
#include "tools/Buttons.h"
#include "tools/CanvasKeyboard.h"
#include "tools/TextInsertion.h"
#include "tools/ToolModes.h"

namespace morvane {
namespace {

/// Random actions of a user, and a comparison after each of them.
class RandomSession : public EitherWay {
 public:
  using EitherWay::EitherWay;

  void Run(int steps) {
    for (int step = 0; step < steps && !HasFatalFailure(); ++step) {
      SCOPED_TRACE(step);
      Step();
      ExpectSame();
    }
    End();
  }

 private:
  /// Most coordinates are near grid lines, where the rules differ, and the first lines have rules
  /// of their own. Moves may leave the map.
  int Coordinate(int extent, bool isInside) {
    if (Random(0, 2) == 0) return Random(0, std::max(0, extent / Random(1, 10) - 1));
    const int v = Random(0, Random(0, 1) == 0 ? 2 : extent / 20) * 20 + Random(-5, 5);
    return isInside ? std::clamp(v, 0, std::max(0, extent - 1)) : v + (Random(0, 9) == 0 ? 50 : 0);
  }

  void Step() {
    const int roll = Random(0, 99);
    if (roll < 55) return Paint();
    if (roll < 63) return Pick();
    if (roll < 68) return ChooseSet(Random(0, kBuiltInSets));
    if (roll < 75) return NextMode();
    if (roll < 82) return Turn();
    if (roll < 87) return Undo();
    if (roll < 90) return PickFile();
    if (roll < 92) return Resize();
    if (roll < 94) return InsertText();
    if (roll < 98) return UseFiles();
    UseWhatDoesNothing();
  }

  void Paint() {
    const auto [width, height] = model.Inside();
    const bool isPress = Random(0, 2) == 0;
    const int buttons = isPress ? 1 << Random(0, 2) : Random(0, Random(0, 1) == 0 ? 2 : 7);
    const int X = Coordinate(width, isPress || buttons == 0);
    const int Y = Coordinate(height, isPress || buttons == 0);
    if (width == 0 || height == 0) return;
    isPress ? Press(buttons, X, Y) : Move(buttons, X, Y);
    model.Paint(isPress, buttons, X, Y);
  }

  void Pick() {
    const Item& item = AnyOf(Items());
    const TileSet& set = TileSets()[item.set];
    if (item.set != model.set) ChooseSet(item.set);
    if (set.pageCount > 1) {
      OneOf({[&] { TabStrip_Click(palette, item.set, item.page); },
             [&] {
               auto* tabs = Find(TextOf(set.tabStrip))->findChild<QTabBar*>();
               QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(item.page - 1).center());
             }});
    }
    OneOf({[&] { Item_Click(palette, item); },
           [&] {
             QTest::mouseClick(Find(TextOf(item.control)), Qt::LeftButton, {}, {2, 2});
           }});
    model.pages[item.set] = item.page;
    model.Pick(item);
  }

  void ChooseSet(int set) {
    OneOf({[&] { TileSetSelector_Click(palette, set); },
           [&] {
             auto* selector = Find<QComboBox>("TileSetSelector");
             selector->setFocus();
             QTest::keyClick(selector, Qt::Key_Home);
             for (int i = 0; i < set; ++i) QTest::keyClick(selector, Qt::Key_Down);
             EXPECT_TRUE(set == 0 || heard.contains(selector->currentText()));
           }});
    model.ChooseSet(set);
  }

  void NextMode() {
    OneOf({[&] { WallButton_Click(palette); }, [&] { Click("WallButton"); },
           [&] { MapKey("Ctrl+M"); }});
    model.NextMode();
  }

  void Turn() {
    using Way = std::tuple<Transform, void (*)(Palette&), const char*, const char*>;
    static const std::array<Way, 4> kWays = {
        {{Transform::FlipHorizontal, &FlipHorizontal_Click, "FlipHorizontal", "Down"},
         {Transform::FlipVertical, &FlipVertical_Click, "FlipVertical", "Up"},
         {Transform::RotateRight, &Rotate_Click, "Rotate", "Right"},
         {Transform::RotateLeft, &RotateLeft_Click, "RotateLeft", "Left"}}};
    const auto& [transform, rule, button, key] = AnyOf(kWays);
    OneOf({[&, rule = rule] { rule(palette); }, [&, button = button] { Click(button); },
           [&, key = key] { MapKey(key); }});
    model.Turn(transform);
  }

  void Undo() {
    if (!model.canUndo) return;
    Command(&mnuEditUndo_Click, "mnuEditUndo", "Undo", "Ctrl+Z");
    model.Undo();
  }

  void PickFile() {
    static const std::array<std::string, 5> kNames = {
        "a tile.bmp", "é漢.bmp", "two\nlines.bmp", "<i>[*]%1&.bmp", std::string(251, 'n') + ".bmp"};
    const std::string& name = AnyOf(kNames);
    const Picture picture = Random(0, 2) > 0 ? RandomPicture(1 << Random(1, 8), 1 << Random(1, 8))
                                             : Speckled(Random(59, 61), Random(59, 61));
    const int kind = Random(0, 9);
    WriteFile(name, kind == 0 ? Bytes() : kind == 1 ? Bytes{'n', 'o'} : WriteBmp(picture.View()));
    ChooseSet(kCustomSet);
    OneOf({[&] { File1_Click(palette, name); },
           [&] {
             auto* list = Find<QListWidget>("File1");
             const auto rows = list->findItems(TextOf(name), Qt::MatchExactly);
             list->scrollToItem(rows[0]);
             QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                               list->visualItemRect(rows[0]).center());
           }});
    if (kind > 1) return model.PickFile(name, picture);
    model.status =
        name + " can't be used as a tile: " +
        (kind == 0 ? "The file is empty."
                   : "This is not a picture that can be read: Unsupported image format.");
  }

  void Resize() {
    if (Random(0, 3) == 0) {
      OneOf({[&] { form.mnuViewStatusBar_Click(); }, [&] { Choose("mnuViewStatusBar"); }});
      model.statusBar = !model.statusBar;
    } else {
      const int most = Random(0, 3) == 0 ? 1700 : 850;
      client_ = {Random(0, most), Random(0, most)};
      OneOf({[&] { form.Form_Resize(client_.width, client_.height); },
             [&] {
               window.resize(client_.width, client_.height);
               QCoreApplication::processEvents();
               client_ = {Client()->width(), Client()->height()};
             }});
    }
    model.Resize(client_);
  }

  void InsertText() {
    const auto [width, height] = model.Inside();
    const int X = Random(0, std::max(0, width - 1));
    const int Y = Random(0, std::max(0, height - 1));
    Command(&mnuToolsInsertText_Click, "mnuToolsInsertText", "", "Ctrl+T");
    window.ShowState();
    EXPECT_EQ(window.focusWidget(), Find("Canvas"));
    Move(kLeftButton, X, Y);  // nothing is painted before the press
    if (width == 0 || height == 0 || Random(0, 3) == 0) {
      return OneOf({[&] { Canvas_KeyDown(palette, kKeyEscape, 0); }, [&] { MapKey("Esc"); }});
    }
    const std::string text = "<b style='font-size:" + std::to_string(Random(8, 250)) + "pt'>Crypt";
    const bool isAccepted = Random(0, 3) > 0;
    if (isAccepted) platform.typedTexts = {text};
    Press(1 << Random(0, 2), X, Y);
    Picture block(509, 349);
    platform.DrawText(text, block);
    model.Text(text, isAccepted ? &block : nullptr, X, Y);
  }

  void UseWhatDoesNothing() {
    const std::array tools = {"Redo", "Cut", "Copy", "Paste"};
    const std::array keys = {"Ctrl+R", "Ctrl+X", "Ctrl+C", "Ctrl+V", "F1", "M", "Alt+Shift+M"};
    OneOf({[] {}, [&] { ClickTool(AnyOf(tools)); }, [&] { MapKey(AnyOf(keys)); }});
  }

  /// Commands that use files, answered at random.
  void UseFiles() {
    const std::string path = Random(0, 4) == 0 ? "" : AnyOf(Paths());
    const Answer answer = AnyOf(std::array{Answer::Yes, Answer::Yes, Answer::No, Answer::Cancel});
    platform.chosenFiles = {path};
    platform.answers = {answer};
    const int roll = Random(0, 9);
    if (roll < 2) {
      NewMap(answer);
    } else if (roll < 5) {
      if (Random(0, 2) == 0) ChangeFile();
      Command(&mnuFileOpen_Click, "mnuFileOpen", "Open", Random(0, 1) == 0 ? "Ctrl+O" : "F11");
      model.Open(path);
    } else if (roll < 7) {
      Command(&mnuFileSave_Click, "mnuFileSave", "Save", "Ctrl+S");
      model.Save(path, answer);
    } else if (roll < 8) {
      Command(&mnuFileSaveAs_Click, "mnuFileSaveAs", "", "F12");
      model.SaveAs(path, answer);
    } else if (roll < 9) {
      platform.printFailure = Random(0, 1) == 0 ? "" : "It burns.";
      Command(&mnuFilePrint_Click, "mnuFilePrint", "Print", "Ctrl+P");
      EXPECT_EQ(std::exchange(platform.printed, {}), std::vector{model.map});
      if (!platform.printFailure.empty())
        model.Report("The map could not be printed.\n\nIt burns.");
    } else {
      platform.answers = {Answer::Cancel};
      model.AskToSave();
      EXPECT_FALSE(Exits());
    }
    platform.chosenFiles.clear();
    platform.answers.clear();
    ExpectSameFiles();
  }

  void NewMap(Answer answer) {
    const Color color = static_cast<Color>(Random(0, 0xFFFFFF));
    const Color gridColor = static_cast<Color>(Random(0, 0xFFFFFF));
    const bool grid = Random(0, 3) > 0;
    model.mapFolder = Random(0, 1) == 0 ? "" : "/maps";
    std::ofstream("Morvane.ini") << "[Color]\nCanvas=" << color << "\nGrid=" << gridColor
                                 << "\n[Map]\nGrid=" << grid << "\nDir=" << model.mapFolder;
    Command(&mnuFileNew_Click, "mnuFileNew", "New", "Ctrl+N");
    model.NewMap(answer, color, grid, gridColor);
  }

  /// Another program writes a file, perhaps an incomplete one.
  void ChangeFile() {
    const std::string path = Paths()[Random(0, 2)];
    Bytes& file = model.files[path];
    file = WriteBmp(RandomPicture(900, 700).View());
    if (Random(0, 2) == 0) file.resize(file.size() / 2);
    WriteFile(path, file);
  }

  /// The user exits, with or without a save.
  void End() {
    const bool isSaved = Random(0, 1) == 0;
    platform.answers = {isSaved ? Answer::Yes : Answer::No, Answer::Yes};
    platform.chosenFiles = {Paths()[0]};
    model.AskToSave();
    if (isSaved) model.Save(Paths()[0], Answer::Yes);
    EXPECT_TRUE(Exits());
    form.RescueAtTermination();  // which comes too late
    EXPECT_TRUE(QDir().entryList({"Morvane rescue*", "mvtmp*"}).isEmpty());
    ExpectSameDialogs();
    ExpectSameFiles();
  }

  std::array<std::string, 4> Paths() const {
    return {folder.File("a"), folder.File("b.bmp"), folder.File("[*] é.bmp"), "/gone/a.bmp"};
  }

  Size client_{787, 537};
};

struct Session : testing::TestWithParam<std::tuple<unsigned, bool>> {};

TEST_P(Session, AgreesWithTheReferenceModelAfterEveryStep) {
  const auto [seed, throughWindow] = GetParam();
  RandomSession(seed, throughWindow).Run(throughWindow ? 400 : 800);
}

INSTANTIATE_TEST_SUITE_P(Seeds, Session, testing::Combine(testing::Range(1U, 7U), testing::Bool()));

}  // namespace
}  // namespace morvane
