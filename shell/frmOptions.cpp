#include "shell/frmOptions.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>

#include "shell/widgets/Accessible.h"
#include "shell/widgets/FittedLabel.h"
#include "shell/widgets/GroupFrame.h"
#include "shell/widgets/Layout.h"
#include "shell/widgets/SharpLines.h"
#include "shell/widgets/Text.h"

namespace morvane {
namespace {

/// A label that passes clicks on to its field.
class FieldLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void mousePressEvent(QMouseEvent* /*event*/) override {
    auto* box = qobject_cast<QCheckBox*>(buddy());
    if (box != nullptr) {
      box->click();
    } else {
      buddy()->setFocus(Qt::MouseFocusReason);
    }
  }
};

/// Labels overlap their fields, so they are lowered, and their texts end before the fields.
void AddLabel(QWidget* frame, const char* name, const char* text, const QRect& place,
              QWidget* buddy) {
  constexpr int kGap = 3;
  auto* label = Placed(new FieldLabel(text, frame), name, place);
  label->setFont(FittedFont(frame->font(), text, buddy->x() - place.x() - kGap));
  label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  label->setBuddy(buddy);
  label->lower();
}

QLineEdit* AddField(QWidget* frame, const char* name, const QRect& place) {
  auto* field = Placed(new QLineEdit(frame), name, place);
  field->setReadOnly(true);
  return field;
}

/// Shows a colour, that of the window in its palette.
class ColorField : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    DrawSunkenBorder(painter, rect(), palette());
  }
};

QWidget* AddColorBox(QWidget* frame, const char* name, const char* spokenName, const QRect& place) {
  auto* box = new ColorField(frame);
  SetRole(box, QAccessible::Graphic);
  Placed(box, name, place);
  box->setAutoFillBackground(true);
  box->setAccessibleName(spokenName);
  return box;
}

/// The button beside the box has the keyboard focus, so its description names the colour too.
void ShowColor(QWidget* box, QWidget* button, Color color) {
  const QColor shown = QColor::fromRgb(PixelOf(color));
  QPalette palette = box->palette();
  palette.setColor(QPalette::Window, shown);
  box->setPalette(palette);
  const QString description =
      QString("Red %1, green %2, blue %3").arg(shown.red()).arg(shown.green()).arg(shown.blue());
  box->setAccessibleDescription(description);
  button->setAccessibleDescription(description);
}

}  // namespace

frmOptions::frmOptions(Document& document, QWidget* owner)
    : FixedDialog("frmOptions", "Options", {Px(6135), Px(3450)}, owner), options_(document) {
  setFont(ArialFont(kSmallText));
  options_.Form_Load();
  AddFolders();
  AddColors();
  AddButton(this, "cmdOK", "OK", PlaceOf(3690, 3015, 1095, 375), [this] {
    options_.GridCheck = GridCheck_->isChecked() ? 1 : 0;
    if (options_.cmdOK_Click()) accept();
  });
  AddButton(this, "cmdCancel", "Cancel", PlaceOf(4920, 3015, 1095, 375), [this] { reject(); });
  GridCheck_->setChecked(options_.GridCheck == 1);
  ShowState();
}

QPushButton* frmOptions::AddButton(QWidget* parent, const char* name, const char* text,
                                   const QRect& place, const std::function<void()>& click) {
  auto* button = Placed(new QPushButton(text, parent), name, place);
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, [this, click] {
    click();
    ShowState();
  });
  return button;
}

void frmOptions::AddFolders() {
  auto* frame =
      Placed(new GroupFrame("File Locations ", this), "Frame1", PlaceOf(120, 120, 5895, 1215));
  TextMapDir_ = AddField(frame, "TextMapDir", PlaceOf(1440, 360, 3975, 285));
  AddButton(frame, "ButtonMapDir", "...", PlaceOf(5520, 360, 255, 255), [this] {
    options_.ButtonMapDir_Click();
  })->setAccessibleName("Choose the map directory");
  TextCustomDir_ = AddField(frame, "TextCustomDir", PlaceOf(1440, 720, 3975, 285));
  AddButton(frame, "ButtonCustomDir", "...", PlaceOf(5520, 720, 255, 255), [this] {
    options_.ButtonCustomDir_Click();
  })->setAccessibleName("Choose the custom directory");
  AddLabel(frame, "Label1", "Map Directory:", PlaceOf(120, 360, 1695, 255), TextMapDir_);
  AddLabel(frame, "Label2", "Custom Directory:", PlaceOf(120, 720, 1935, 255), TextCustomDir_);
}

void frmOptions::AddColors() {
  auto* frame =
      Placed(new GroupFrame("New Map Options ", this), "Frame2", PlaceOf(120, 1440, 5895, 1455));
  ColorBox_ = AddColorBox(frame, "ColorBox", "Background color", PlaceOf(1560, 360, 375, 375));
  PaletteButton_ = AddButton(frame, "PaletteButton", "Palette...", PlaceOf(2040, 360, 1095, 375),
                             [this] { options_.PaletteButton_Click(); });
  GridColorBox_ = AddColorBox(frame, "GridColorBox", "Grid color", PlaceOf(1560, 840, 375, 375));
  GridPaletteButton_ =
      AddButton(frame, "GridPaletteButton", "Palette...", PlaceOf(2040, 840, 1095, 375),
                [this] { options_.GridPaletteButton_Click(); });
  GridCheck_ = Placed(new QCheckBox(frame), "GridCheck", PlaceOf(4080, 960, 255, 255));
  GridCheck_->setAccessibleName("Gridlines");
  AddLabel(frame, "Label3", "Background Color:", PlaceOf(120, 480, 1575, 255), PaletteButton_);
  AddLabel(frame, "Label4", "Grid Color:", PlaceOf(120, 960, 1095, 255), GridPaletteButton_);
  AddLabel(frame, "Label5", "Gridlines:", PlaceOf(3360, 960, 735, 255), GridCheck_);
}

void frmOptions::ShowState() {
  const auto show = [](QLineEdit* field, const std::string& text) {
    field->setText(TextOf(text));
    field->setToolTip(ToolTipOf(TextOf(text)));
  };
  show(TextMapDir_, options_.TextMapDir);
  show(TextCustomDir_, options_.TextCustomDir);
  ShowColor(ColorBox_, PaletteButton_, options_.ColorBox);
  ShowColor(GridColorBox_, GridPaletteButton_, options_.GridColorBox);
}

}  // namespace morvane
