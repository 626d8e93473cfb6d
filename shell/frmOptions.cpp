#include "shell/frmOptions.h"

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "shell/GroupFrame.h"
#include "shell/Layout.h"
#include "shell/Text.h"

namespace morvane {
namespace {

template <typename Control>
Control* Placed(Control* control, const char* name, const QRect& place) {
  control->setObjectName(name);
  control->setGeometry(place);
  return control;
}

QLabel* AddLabel(QWidget* frame, const char* name, const char* text, const QRect& place,
                 QWidget* buddy) {
  auto* label = Placed(new QLabel(text, frame), name, place);
  label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  label->setBuddy(buddy);
  return label;
}

QLineEdit* AddField(QWidget* frame, const char* name, const QRect& place) {
  auto* field = Placed(new QLineEdit(frame), name, place);
  field->setFont(ArialFont(kSmallText));
  field->setReadOnly(true);
  return field;
}

QWidget* AddColorBox(QWidget* frame, const char* name, const QRect& place) {
  auto* box = Placed(new QFrame(frame), name, place);
  box->setFrameStyle(QFrame::WinPanel | QFrame::Sunken);
  box->setAutoFillBackground(true);
  return box;
}

void ShowColor(QWidget* box, Color color) {
  QPalette palette = box->palette();
  palette.setColor(QPalette::Window, QColor::fromRgb(PixelOf(color)));
  box->setPalette(palette);
}

}  // namespace

frmOptions::frmOptions(Document& document, QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      options_(document) {
  setObjectName("frmOptions");
  setWindowTitle("Options");
  setFont(ArialFont(kSmallText));
  setFixedSize(Px(6135), Px(3450));
  options_.Form_Load();
  AddFolders();
  AddColors();
  AddButtons();
  for (QPushButton* button : findChildren<QPushButton*>()) {
    button->setAutoDefault(false);  // Enter doesn't press OK
  }
  GridCheck_->setChecked(options_.GridCheck == 1);
  ShowState();
}

void frmOptions::AddFolders() {
  auto* frame =
      Placed(new GroupFrame("File Locations ", this), "Frame1", PlaceOf(120, 120, 5895, 1215));
  TextMapDir_ = AddField(frame, "TextMapDir", PlaceOf(1440, 360, 3975, 285));
  TextCustomDir_ = AddField(frame, "TextCustomDir", PlaceOf(1440, 720, 3975, 285));
  AddLabel(frame, "Label1", "Map Directory:", PlaceOf(120, 360, 1695, 255), TextMapDir_)->lower();
  AddLabel(frame, "Label2", "Custom Directory:", PlaceOf(120, 720, 1935, 255), TextCustomDir_)
      ->lower();
  auto* map = Placed(new QPushButton("...", frame), "ButtonMapDir", PlaceOf(5520, 360, 255, 255));
  map->setAccessibleName("Choose the map directory");
  connect(map, &QPushButton::clicked, this, [this] {
    options_.ButtonMapDir_Click();
    ShowState();
  });
  auto* custom =
      Placed(new QPushButton("...", frame), "ButtonCustomDir", PlaceOf(5520, 720, 255, 255));
  custom->setAccessibleName("Choose the custom directory");
  connect(custom, &QPushButton::clicked, this, [this] {
    options_.ButtonCustomDir_Click();
    ShowState();
  });
}

void frmOptions::AddColors() {
  auto* frame =
      Placed(new GroupFrame("New Map Options ", this), "Frame2", PlaceOf(120, 1440, 5895, 1455));
  ColorBox_ = AddColorBox(frame, "ColorBox", PlaceOf(1560, 360, 375, 375));
  ColorBox_->setAccessibleName("Background color");
  GridColorBox_ = AddColorBox(frame, "GridColorBox", PlaceOf(1560, 840, 375, 375));
  GridColorBox_->setAccessibleName("Grid color");
  auto* background =
      Placed(new QPushButton("Palette...", frame), "PaletteButton", PlaceOf(2040, 360, 1095, 375));
  connect(background, &QPushButton::clicked, this, [this] {
    options_.PaletteButton_Click();
    ShowState();
  });
  auto* grid = Placed(new QPushButton("Palette...", frame), "GridPaletteButton",
                      PlaceOf(2040, 840, 1095, 375));
  connect(grid, &QPushButton::clicked, this, [this] {
    options_.GridPaletteButton_Click();
    ShowState();
  });
  GridCheck_ = Placed(new QCheckBox(frame), "GridCheck", PlaceOf(4080, 960, 255, 255));
  GridCheck_->setAccessibleName("Gridlines");
  AddLabel(frame, "Label3", "Background Color:", PlaceOf(120, 480, 1575, 255), background)->lower();
  AddLabel(frame, "Label4", "Grid Color:", PlaceOf(120, 960, 1095, 255), grid)->lower();
  AddLabel(frame, "Label5", "Gridlines:", PlaceOf(3360, 960, 735, 255), GridCheck_)->lower();
}

void frmOptions::AddButtons() {
  auto* cmdOK = Placed(new QPushButton("OK", this), "cmdOK", PlaceOf(3690, 3015, 1095, 375));
  connect(cmdOK, &QPushButton::clicked, this, [this] {
    options_.GridCheck = GridCheck_->isChecked() ? 1 : 0;
    if (options_.cmdOK_Click()) accept();
  });
  auto* cmdCancel =
      Placed(new QPushButton("Cancel", this), "cmdCancel", PlaceOf(4920, 3015, 1095, 375));
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmOptions::ShowState() {
  const auto show = [](QLineEdit* field, const std::string& text) {
    field->setText(TextOf(text));
    field->setToolTip(TextOf(text));
  };
  show(TextMapDir_, options_.TextMapDir);
  show(TextCustomDir_, options_.TextCustomDir);
  ShowColor(ColorBox_, options_.ColorBox);
  ShowColor(GridColorBox_, options_.GridColorBox);
}

}  // namespace morvane
