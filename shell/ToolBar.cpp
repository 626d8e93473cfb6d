#include "shell/ToolBar.h"

#include <QWidget>
#include <array>

#include "shell/ArtSheets.h"

namespace morvane {
namespace {

struct Button {
  const char* key;   ///< also the tool tip; empty for separators without a key
  const char* icon;  ///< null for a separator
  const char* command;
};

constexpr std::array<Button, 12> kButtons = {{
    {"New", "new", "mnuFileNew"},
    {"Open", "open", "mnuFileOpen"},
    {"Save", "save", "mnuFileSave"},
    {"", nullptr, nullptr},
    {"Print", "print", "mnuFilePrint"},
    {"", nullptr, nullptr},
    {"Undo", "undo", "mnuEditUndo"},
    {"Redo", "redo", "mnuEditRedo"},
    {"sep", nullptr, nullptr},
    {"Cut", "cut", "mnuEditCut"},
    {"Copy", "copy", "mnuEditCopy"},
    {"Paste", "paste", "mnuEditPaste"},
}};

}  // namespace

ToolBar::ToolBar(QWidget* parent) : QToolBar(parent) {
  setObjectName("tbToolBar");
  setAccessibleName("Commands");
  setIconSize({16, 16});
  for (const Button& button : kButtons) {
    if (button.icon == nullptr) {
      addSeparator()->setObjectName(button.key);
      continue;
    }
    const QString key = button.key;
    QAction* action = addAction(LoadIcon(button.icon), key);
    action->setObjectName(key);
    action->setToolTip(key);
    buttons_.push_back(widgetForAction(action));
    buttons_.back()->setFocusPolicy(Qt::TabFocus);
    connect(action, &QAction::triggered, this, [this, &button] { emit Chosen(button.command); });
    if (key == "Undo") undo_ = action;
  }
}

void ToolBar::SetUndoEnabled(bool enabled) {
  undo_->setEnabled(enabled);
}

}  // namespace morvane
