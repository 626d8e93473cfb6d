#include "shell/frmAbout.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

#include "document/About.h"
#include "shell/ArtSheets.h"
#include "shell/widgets/Layout.h"
#include "shell/widgets/SharpLines.h"

namespace morvane {
namespace {

constexpr QColor kGrooveDark(0x80, 0x80, 0x80);

/// A picture that can be clicked, but only shows that when it has the keyboard focus.
class SecretTile : public QAbstractButton {
 public:
  using QAbstractButton::QAbstractButton;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    icon().paint(&painter, rect());
    if (!hasFocus()) return;
    painter.setPen(
        QPen(palette().color(QPalette::Highlight), 2, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
  }
};

}  // namespace

frmAbout::frmAbout(Platform& platform, QWidget* owner)
    : FixedDialog("frmAbout", "About Morvane", {Px(5865), Px(3450)}, owner) {
  AddPictures(platform);

  auto* notice = new QLabel(
      "Paints maps for role-playing games.\n"
      "Made by people who like dungeons.\nNo warranty for what lurks in them.\n"
      "Version " MORVANE_VERSION ", free under the MIT licence.",
      this);
  notice->setObjectName("lblDisclaimer");
  notice->setGeometry(PlaceOf(180, 2520, 4185, 825));
  notice->setFont(ArialFont(kSmallText));
  notice->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  QPalette blackOnWhite = notice->palette();
  blackOnWhite.setColor(QPalette::WindowText, Qt::black);
  notice->setPalette(blackOnWhite);

  auto* cmdOK = new QPushButton("OK", this);
  cmdOK->setObjectName("cmdOK");
  cmdOK->setGeometry(PlaceOf(4485, 3000, 1230, 345));
  cmdOK->setFont(ArialFont(kSmallText));
  cmdOK->setDefault(true);
  cmdOK->setFocus();
  connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

void frmAbout::AddPictures(Platform& platform) {
  auto* picIcon = new QLabel(this);
  picIcon->setObjectName("picIcon");
  picIcon->setAccessibleName("A map maker's table, with the name Morvane");
  picIcon->setPixmap(LoadPhoto("about", devicePixelRatioF()));
  picIcon->setGeometry(Px(40), Px(20), Px(5745), Px(2310));

  auto* secret = new SecretTile(picIcon);
  secret->setObjectName("Picture1");
  secret->setAccessibleName("A flagstone");
  secret->setIcon(LoadIcon("secret"));
  secret->setGeometry(PlaceOf(5145, 1710, 300, 300));
  secret->setFocusPolicy(Qt::TabFocus);
  connect(secret, &QAbstractButton::clicked, this, [&platform] { SecretTile_Click(platform); });
}

void frmAbout::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  DrawSharpLine(painter, {Px(225), Px(2430), Px(5657), Px(2430)}, kGrooveDark);
  DrawSharpLine(painter, {Px(240), Px(2445), Px(5657), Px(2445)}, Qt::white);
}

}  // namespace morvane
