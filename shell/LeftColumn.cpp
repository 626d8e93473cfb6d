#include "shell/LeftColumn.h"

#include <QLabel>
#include <QToolButton>

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

void SetUpLabel(QLabel* label, const char* name, const QRect& place, const QFont& font) {
  label->setObjectName(name);
  label->setGeometry(place);
  label->setFont(font);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  label->setTextFormat(Qt::PlainText);
}

QLabel* AddLabel(QWidget* window, const char* name, const char* text, const QRect& place,
                 const QFont& font) {
  auto* label = new QLabel(text, window);
  SetUpLabel(label, name, place, font);
  return label;
}

struct ModeLook {
  const char* caption;
  const char* face;
};

ModeLook LookOf(Mode mode) {
  switch (mode) {
    case Mode::Wall:
      return {"Wall", "mode-wall"};
    case Mode::Door:
      return {"Door", "mode-door"};
    default:
      return {"Tile", "mode-tile"};
  }
}

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
  AddLabel(window, "Label4", "Mode:", PlaceOf(630, 600, 615, 255), heading)->setBuddy(wallButton_);
  mode_ = AddLabel(window, "lbMode", "Tile", PlaceOf(630, 840, 495, 255), text);
  auto* selected =
      AddLabel(window, "Label1", "Selected Tile:", PlaceOf(1290, 600, 1335, 255), heading);
  // The map covers the right end of this label.
  tile_ = new FittedLabel(Px(2520) - Px(1290) - 2, window);
  SetUpLabel(tile_, "Label2", PlaceOf(1290, 840, 1770, 255), text);
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
  auto* label = AddLabel(window, "Label3", "Tileset:", PlaceOf(120, 2475, 735, 255), heading);
  label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  tileSet_ = new WholeEntryCombo(window);
  label->setBuddy(tileSet_);
  tileSet_->setAccessibleName("Tileset");
  AnnounceEntry(tileSet_);
  tileSet_->setObjectName("TileSetSelector");
  tileSet_->setFont(ArialFont(kSmallText));
  tileSet_->setGeometry(PlaceOf(750, 2445, 1650, 330));
  for (const TileSet& set : TileSets()) tileSet_->addItem(TextOf(set.caption));
  tileSet_->addItem("Custom");
  connect(tileSet_, &QComboBox::activated, this, &LeftColumn::TileSetChosen);
}

QToolButton* LeftColumn::AddButton(QWidget* window, const char* name, const char* toolTip,
                                   const char* icon, const QPoint& corner) {
  auto* button = new QToolButton(window);
  button->setObjectName(name);
  button->setToolTip(toolTip);
  button->setAccessibleName(toolTip);
  button->setIcon(LoadIcon(icon));
  button->setIconSize({24, 24});
  button->setGeometry(QRect(corner, QSize(Px(420), Px(405))));
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
  const ModeLook look = LookOf(palette_.CurrentMode());
  if (mode_->text() != look.caption) {
    mode_->setText(look.caption);
    wallButton_->setIcon(LoadIcon(look.face));
    wallButton_->setAccessibleDescription(look.caption);
  }
  tile_->ShowText(TextOf(palette_.Label2));
  stamp_->ShowState();
  tileSet_->setCurrentIndex(palette_.TileSetSelector.ListIndex);
}

}  // namespace morvane
