#include "platform/QtDialogs.h"

#include <QApplication>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPluginLoader>
#include <QPushButton>
#include <QTreeView>
#include <climits>
#include <filesystem>
#include <map>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include "document/picture/Color.h"
#include "platform/ScreenRoom.h"

namespace morvane {
namespace {

/// Qt doesn't give the name of its platform theme. The portal's theme loads the desktop's as well,
/// so both plugins may be loaded.
bool IsThemeLoaded(const char* plugin) {
  return QPluginLoader(plugin).isLoaded();
}

/// Whether the desktop's file dialogs are those of its portal. These ignore the start folder, ask
/// before a file is replaced, and never return if the portal's process ends.
bool HasPortalDialogs() {
  return IsThemeLoaded("platformthemes/libqxdgdesktopportal");
}

/// Whether the desktop's file dialogs are those of GTK.
bool HasGtkDialogs() {
  return IsThemeLoaded("platformthemes/libqgtk3") && !HasPortalDialogs();
}

QAbstractButton& AcceptButton(const QFileDialog& box) {
  const bool opens = box.acceptMode() == QFileDialog::AcceptOpen;
  const auto* row = box.findChild<QDialogButtonBox*>("buttonBox");
  return *row->button(opens ? QDialogButtonBox::Open : QDialogButtonBox::Save);
}

/// Makes the dialog use a typed path as it is, and accept it with Return.
///
/// If a full path into the current folder is typed, Qt's dialog selects that folder in its list,
/// takes it as the choice, and disables its button.
class TypedPath : public QObject {
 public:
  explicit TypedPath(QFileDialog& box)
      : QObject(&box),
        name_(*box.findChild<QLineEdit*>("fileNameEdit")),
        list_(*box.findChild<QListView*>("listView")),
        accept_(AcceptButton(box)) {
    accept_.installEventFilter(this);
    connect(&name_, &QLineEdit::textChanged, this, &TypedPath::ClearSelection);
    // Deferred, since the dialog may accept the path itself.
    connect(&name_, &QLineEdit::returnPressed, this, &TypedPath::Accept, Qt::QueuedConnection);
    connect(&accept_, &QAbstractButton::clicked, this, &TypedPath::ReportLongName);
  }

 protected:
  bool eventFilter(QObject* /*button*/, QEvent* event) override {
    if (event->type() == QEvent::EnabledChange && IsTyped()) accept_.setEnabled(true);
    return false;
  }

 private:
  bool IsTyped() const { return !name_.text().trimmed().isEmpty(); }
  void ClearSelection() {
    if (name_.text().contains('/')) list_.selectionModel()->clearSelection();
  }
  void Accept() {
    // If the dialog has accepted it, it is closed by now, or asks a question.
    if (QApplication::activeModalWidget() == accept_.window() && IsTyped()) accept_.click();
  }

  void ReportLongName() {
    // Otherwise Qt's dialog stays open without a message.
    const QString name = name_.text().section('/', -1);
    if (!accept_.window()->isVisible() || name.size() <= NAME_MAX) return;
    ShowMessage(accept_.window(), "The file name is too long.", BoxStyle::OkExclamation,
                kProgramName);
  }

  QLineEdit& name_;
  QListView& list_;
  QAbstractButton& accept_;
};

/// Widens the columns: by default Qt elides sizes and dates.
void FitColumns(const QFileDialog& box) {
  QHeaderView* columns = box.findChild<QTreeView*>("treeView")->header();
  columns->setStretchLastSection(false);
  columns->setSectionResizeMode(QHeaderView::ResizeToContents);
  columns->setSectionResizeMode(0, QHeaderView::Stretch);
}

/// The names in a folder that Qt shows as the given one.
std::vector<std::filesystem::path> NamesShownAs(const QString& shown,
                                                const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> names;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::filesystem::path name = entry->path().filename();
    if (QString::fromStdString(name) == shown) names.push_back(name);
  }
  return names;
}

/// The bytes of a path that Qt shows. A name that isn't UTF-8 is shown with replacement characters,
/// so it is searched for in its folder. Returns an empty path if several names are shown like it.
std::filesystem::path SystemPath(const QString& shown) {
  std::filesystem::path path;
  for (const std::filesystem::path& name : std::filesystem::path(shown.toStdString())) {
    const QString shownName = QString::fromStdString(name);
    std::vector<std::filesystem::path> matches;
    if (shownName.contains(QChar::ReplacementCharacter)) matches = NamesShownAs(shownName, path);
    if (matches.size() > 1) return {};
    path /= matches.empty() ? name : matches.front();
  }
  return path;
}

/// Native dialogs have no Qt widgets.
bool IsQtsOwn(const QFileDialog& box) {
  return box.findChild<QLineEdit*>("fileNameEdit") != nullptr;
}

/// Whether the desktop's dialog would show the title, the filter and these names (the start folder
/// and the preset name) unchanged, and ask no questions itself.
bool CanBeNative(FileDialogMode mode, const QString& names) {
  if (HasPortalDialogs()) return false;
  // Only GTK's is known not to ask about existing files and not to add an extension.
  if (mode == FileDialogMode::Save && !HasGtkDialogs()) return false;
  // Only Qt's own dialog can show a folder or a name that isn't UTF-8.
  return !names.contains(QChar::ReplacementCharacter);
}

/// The filter in Qt's syntax. GTK's patterns are case-sensitive, so for desktops' dialogs, which
/// don't show the pattern, it matches both cases.
QString FilterFor(const FileDialog& dialog, const QFileDialog& box) {
  const QStringList parts = QString::fromStdString(dialog.Filter).split('|');
  if (IsQtsOwn(box)) return parts.front();
  QString pattern;
  for (const QChar& c : parts.back()) {
    pattern += c.isLetter() ? QString("[%1%2]").arg(c.toLower()).arg(c.toUpper()) : QString(c);
  }
  return parts.front().section('(', 0, 0) + '(' + pattern + ')';
}

/// Runs the dialog at a size that fits its screen. Returns the chosen path; empty after a cancel.
std::string SelectedPath(QFileDialog& box) {
  box.setSupportedSchemes({"file"});
  std::optional<TypedPath> typed;
  if (IsQtsOwn(box)) {
    typed.emplace(box);
    FitColumns(box);
    constexpr QSize kRoomForNames(640, 420);
    box.resize(box.sizeHint().expandedTo(kRoomForNames).boundedTo(ScreenRoomOf(box)));
  }
  if (box.exec() != QDialog::Accepted || box.selectedFiles().isEmpty()) return {};
  const std::filesystem::path path = SystemPath(box.selectedFiles().constFirst());
  if (path.empty()) {
    ShowMessage(box.parentWidget(),
                "Several files in this folder have names that are shown in the same way. "
                "Rename them first.",
                BoxStyle::OkExclamation, kProgramName);
  }
  return path;
}

}  // namespace

Answer ShowMessage(QWidget* owner, const std::string& text, BoxStyle style,
                   const std::string& title) {
  using Look = std::pair<QMessageBox::Icon, QMessageBox::StandardButtons>;
  constexpr auto kYesNo = QMessageBox::Yes | QMessageBox::No;
  static const std::map<BoxStyle, Look> kLooks = {
      {BoxStyle::OkOnly, {QMessageBox::NoIcon, QMessageBox::Ok}},
      {BoxStyle::YesNoCancelQuestion, {QMessageBox::Question, kYesNo | QMessageBox::Cancel}},
      {BoxStyle::YesNoQuestion, {QMessageBox::Question, kYesNo}},
      {BoxStyle::OkExclamation, {QMessageBox::Warning, QMessageBox::Ok}},
      {BoxStyle::YesNoExclamation, {QMessageBox::Warning, kYesNo}},
  };
  const auto& [icon, buttons] = kLooks.at(style);
  QMessageBox box(icon, QString::fromStdString(title), QString::fromStdString(text), buttons,
                  owner);
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(buttons.testFlag(QMessageBox::Yes) ? QMessageBox::Yes : QMessageBox::Ok);
  // Qt gives access keys only to Yes and No.
  if (auto* ok = box.button(QMessageBox::Ok)) ok->setText("&OK");
  if (auto* cancel = box.button(QMessageBox::Cancel)) cancel->setText("&Cancel");
  const int pressed = box.exec();
  if (pressed == QMessageBox::Yes) return Answer::Yes;
  if (pressed == QMessageBox::No) return Answer::No;
  return pressed == QMessageBox::Ok ? Answer::Ok : Answer::Cancel;
}

std::string AskForFile(QWidget* owner, const FileDialog& dialog, FileDialogMode mode,
                       const std::string& folder) {
  const QString start = QString::fromStdString(folder);
  const QString preset = QString::fromStdString(dialog.FileName);
  QFileDialog box(owner, QString::fromStdString(dialog.DialogTitle), start);
  box.setOption(QFileDialog::DontUseNativeDialog, !CanBeNative(mode, start + preset));
  box.setNameFilter(FilterFor(dialog, box));
  // The core checks whether a file exists, and asks before it replaces one.
  box.setOption(QFileDialog::DontConfirmOverwrite);
  const bool saves = mode == FileDialogMode::Save;
  box.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  if (!preset.isEmpty()) box.selectFile(preset);
  return SelectedPath(box);
}

std::string AskForFolder(QWidget* owner, const std::string& title) {
  QFileDialog box(owner, QString::fromStdString(title));
  box.setOption(QFileDialog::DontUseNativeDialog, HasPortalDialogs());
  box.setOption(QFileDialog::ShowDirsOnly);
  box.setFileMode(QFileDialog::Directory);
  return SelectedPath(box);
}

void AskForColor(QWidget* owner, std::uint32_t& color) {
  const Pixel pixel = PixelOf(color);
  const QColor chosen = QColorDialog::getColor(QColor::fromRgb(pixel), owner);
  if (chosen.isValid()) color = ColorOf(chosen.rgb());
}

}  // namespace morvane
