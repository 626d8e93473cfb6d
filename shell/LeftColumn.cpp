#include "shell/LeftColumn.h"

#include <QLabel>
#include <QToolButton>
#include <array>

#include "shell/ArtSheets.h"
#include "shell/PictureBoxView.h"
#include "shell/widgets/Accessible.h"
#include "shell/widgets/FittedLabel.h"
#include "shell/widgets/Layout.h"
#include "shell/widgets/TabRing.h"
#include "shell/widgets/Text.h"
#include "shell/widgets/WholeEntryCombo.h"

namespace morvane {
namespace {

template <typename Label>
Label* SetUp(Label* label, const char* name, const QRect& place, const QFont& font) {
  label->setFont(font);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  label->setTextFormat(Qt::PlainText);
  return Placed(label, name, place);
}

/// Caption and picture of the mode button.
struct ModeLook {
  const char* caption;
  const char* icon;
};
constexpr std::array<ModeLook, 3> kModeLooks = {
    {{"Tile", "mode-tile"}, {"Wall", "mode-wall"}, {"Door", "mode-door"}}};

}  // namespace

LeftColumn::LeftColumn(Palette& palette, QWidget* window) : QObject(window), palette_(palette) {
  AddModeBox(window);
  AddStampBox(window);
  AddTileSetRow(window);
}

void LeftColumn::AddModeBox(QWidget* window) {
  wallButton_ = AddButton(window, "WallButton", "Mode", "mode-tile", {Px(120), Px(630)});
  wallButton_->setAccessibleDescription("Tile");
  const QFont heading = ArialFont(kLabelText, true);
  const QFont text = ArialFont(kSmallText);
  SetUp(new QLabel("Mode:", window), "Label4", PlaceOf(630, 600, 615, 255), heading)
      ->setBuddy(wallButton_);
  mode_ = SetUp(new QLabel("Tile", window), "lbMode", PlaceOf(630, 840, 495, 255), text);
  auto* selected =
      SetUp(new QLabel("Selected Tile:", window), "Label1", PlaceOf(1290, 600, 1335, 255), heading);
  // The map covers the right end of this label.
  tile_ = SetUp(new FittedLabel(Px(2520) - Px(1290) - 2, window), "Label2",
                PlaceOf(1290, 840, 1770, 255), text);
  selected->setBuddy(tile_);
}

void LeftColumn::AddStampBox(QWidget* window) {
  stamp_ = new PictureBoxView(palette_.Picture1, window);
  SetRole(stamp_, QAccessible::Graphic);
  stamp_->setObjectName("Picture1");
  stamp_->setAccessibleName("Selected tile");
  stamp_->move(Px(825), Px(1320));
  AddButton(window, "FlipVertical", "Flip Vertical", "flip-vertical", {Px(120), Px(1320)});
  AddButton(window, "FlipHorizontal", "Flip Horizontal", "flip-horizontal", {Px(1920), Px(1320)});
  AddButton(window, "RotateLeft", "Rotate Left", "rotate-left", {Px(120), Px(1800)});
  AddButton(window, "Rotate", "Rotate Right", "rotate-right", {Px(1920), Px(1800)});
}

void LeftColumn::AddTileSetRow(QWidget* window) {
  constexpr int kGap = 2;  // to the selector, which covers the right end of the label
  const QFont heading =
      FittedFont(ArialFont(kLabelText, true), "Tileset:", Px(750) - Px(120) - kGap);
  auto* label =
      SetUp(new QLabel("Tileset:", window), "Label3", PlaceOf(120, 2475, 735, 255), heading);
  label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  tileSet_ = Placed(new WholeEntryCombo(window), "TileSetSelector", PlaceOf(750, 2445, 1650, 330));
  label->setBuddy(tileSet_);
  tileSet_->setAccessibleName("Tileset");
  AnnounceEntry(tileSet_);
  tileSet_->setFont(ArialFont(kSmallText));
  for (const TileSet& set : TileSets()) tileSet_->addItem(TextOf(set.caption));
  tileSet_->addItem("Custom");
  connect(tileSet_, &QComboBox::activated, this, &LeftColumn::TileSetChosen);
}

QToolButton* LeftColumn::AddButton(QWidget* window, const char* name, const char* toolTip,
                                   const char* icon, const QPoint& corner) {
  auto* button = Placed(new QToolButton(window), name, {corner, QSize(Px(420), Px(405))});
  button->setToolTip(toolTip);
  button->setAccessibleName(toolTip);
  button->setIcon(LoadIcon(icon));
  button->setIconSize({24, 24});
  button->setFocusPolicy(Qt::StrongFocus);
  connect(button, &QToolButton::clicked, this, [this, name] { emit ButtonClicked(name); });
  buttons_.push_back(button);
  return button;
}

void LeftColumn::AddStops(TabRing& ring) const {
  for (QWidget* button : buttons_) ring.Add({button});
  ring.Add({tileSet_});
}

void LeftColumn::ShowState() {
  const ModeLook& look = kModeLooks[static_cast<std::size_t>(palette_.CurrentMode())];
  if (mode_->text() != look.caption) {
    mode_->setText(look.caption);
    wallButton_->setIcon(LoadIcon(look.icon));
    wallButton_->setAccessibleDescription(look.caption);
  }
  tile_->ShowText(TextOf(palette_.Label2));
  stamp_->ShowState();
  tileSet_->setCurrentIndex(palette_.TileSetSelector.ListIndex);
}

}  // namespace morvane
