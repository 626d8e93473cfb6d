#include "shell/frmAbout.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

#include "shell/ArtSheets.h"
#include "shell/widgets/Layout.h"
#include "shell/widgets/SharpLines.h"

namespace morvane {
namespace {

constexpr QColor kGrooveDark(0x80, 0x80, 0x80);

/// A picture that can be clicked, which only its focus indicator reveals.
class SecretTile : public QAbstractButton {
 public:
  using QAbstractButton::QAbstractButton;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    icon().paint(&painter, rect());
    if (hasFocus()) DrawSharpBox(painter, rect(), palette().color(QPalette::Highlight), 2);
  }
};

}  // namespace

frmAbout::frmAbout(Platform& platform, QWidget* owner)
    : FixedDialog("frmAbout", "About Morvane", {Px(5865), Px(3450)}, owner) {
  auto* picIcon = Placed(new QLabel(this), "picIcon", PlaceOf(40, 20, 5745, 2310));
  picIcon->setAccessibleName("A map maker's table, with the name Morvane");
  picIcon->setPixmap(LoadPhoto("about", devicePixelRatioF()));

  auto* secret = Placed(new SecretTile(picIcon), "Picture1", PlaceOf(5145, 1710, 300, 300));
  secret->setAccessibleName("A flagstone");
  secret->setIcon(LoadIcon("secret"));
  secret->setFocusPolicy(Qt::TabFocus);
  connect(secret, &QAbstractButton::clicked, this, [&platform] {
    platform.MsgBox("You found the secret tile!!", BoxStyle::OkOnly, kProgramName);
  });

  auto* notice = new QLabel(
      "Paints maps for role-playing games.\n"
      "Made by people who like dungeons.\nNo warranty for what lurks in them.\n"
      "Version " MORVANE_VERSION ", free under the MIT licence.",
      this);
  Placed(notice, "lblDisclaimer", PlaceOf(180, 2520, 4185, 825));
  notice->setFont(ArialFont(kSmallText));
  notice->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  QPalette blackOnWhite = notice->palette();
  blackOnWhite.setColor(QPalette::WindowText, Qt::black);
  notice->setPalette(blackOnWhite);

  auto* cmdOK = Placed(new QPushButton("OK", this), "cmdOK", PlaceOf(4485, 3000, 1230, 345));
  cmdOK->setFont(ArialFont(kSmallText));
  cmdOK->setDefault(true);
  cmdOK->setFocus();
  connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

void frmAbout::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  DrawSharpLine(painter, {Px(225), Px(2430), Px(5657), Px(2430)}, kGrooveDark);
  DrawSharpLine(painter, {Px(240), Px(2445), Px(5657), Px(2445)}, Qt::white);
}

}  // namespace morvane
