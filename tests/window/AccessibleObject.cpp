#include "tests/window/AccessibleObject.h"

#include <map>
#include <set>

namespace morvane {
namespace {

/// The library's own words differ from one version to the next.
std::string WordFor(AtspiRole role) {
  static const std::map<AtspiRole, std::string> kWords = {
      {ATSPI_ROLE_CANVAS, "canvas"},
      {ATSPI_ROLE_CHECK_BOX, "check box"},
      {ATSPI_ROLE_COMBO_BOX, "combo box"},
      {ATSPI_ROLE_FRAME, "frame"},
      {ATSPI_ROLE_IMAGE, "image"},
      {ATSPI_ROLE_LABEL, "label"},
      {ATSPI_ROLE_LIST, "list"},
      {ATSPI_ROLE_MENU_BAR, "menu bar"},
      {ATSPI_ROLE_MENU_ITEM, "menu item"},
      {ATSPI_ROLE_NOTIFICATION, "notification"},
      {ATSPI_ROLE_PAGE_TAB, "page tab"},
      {ATSPI_ROLE_PAGE_TAB_LIST, "page tab list"},
      {ATSPI_ROLE_PANEL, "panel"},
      {ATSPI_ROLE_PUSH_BUTTON, "push button"},
      {ATSPI_ROLE_STATUS_BAR, "status bar"},
      {ATSPI_ROLE_TEXT, "text"},
      {ATSPI_ROLE_TOOL_BAR, "tool bar"},
  };
  const auto word = kWords.find(role);
  return word != kWords.end() ? word->second : "role " + std::to_string(role);
}

}  // namespace

std::string AccessibleObject::Taken(char* text) {
  std::string taken = text != nullptr ? text : "";
  g_free(text);
  return taken;
}

std::string AccessibleObject::Name() const {
  std::string label;
  GArray* relations = atspi_accessible_get_relation_set(node_.get(), nullptr);
  for (guint i = 0; relations != nullptr && i < relations->len; ++i) {
    auto* relation = g_array_index(relations, AtspiRelation*, i);
    if (atspi_relation_get_relation_type(relation) == ATSPI_RELATION_LABELLED_BY) {
      const AccessibleObject target(atspi_relation_get_target(relation, 0));
      if (target.Role() == ATSPI_ROLE_LABEL) label = target.OwnName();
    }
    g_object_unref(relation);
  }
  if (relations != nullptr) g_array_free(relations, TRUE);
  if (Role() == ATSPI_ROLE_COMBO_BOX) return label;
  const std::string own = OwnName();
  return label.empty() || label.find(own) == 0 ? own : label + " " + own;
}

std::string AccessibleObject::Value() const {
  const AtspiRole role = Role();
  if (role == ATSPI_ROLE_CHECK_BOX) return Is(ATSPI_STATE_CHECKED) ? "checked" : "not checked";
  if (role == ATSPI_ROLE_PAGE_TAB) return Is(ATSPI_STATE_SELECTED) ? "selected" : "";
  if (role == ATSPI_ROLE_TEXT) {
    auto* text = atspi_accessible_get_text_iface(node_.get());
    std::string content = Taken(atspi_text_get_text(text, 0, -1, nullptr));
    g_object_unref(text);
    return content;
  }
  if (role == ATSPI_ROLE_COMBO_BOX) return OwnName();
  std::string value = Taken(atspi_accessible_get_description(node_.get(), nullptr));
  return value == OwnName() ? "" : value;
}

bool AccessibleObject::Is(AtspiStateType state) const {
  AtspiStateSet* states = atspi_accessible_get_state_set(node_.get());
  if (states == nullptr) return false;  // it has just gone
  const bool is = atspi_state_set_contains(states, state);
  g_object_unref(states);
  return is;
}

std::vector<AccessibleObject> AccessibleObject::Children() const {
  std::vector<AccessibleObject> children;
  const int count = atspi_accessible_get_child_count(node_.get(), nullptr);
  for (int i = 0; i < count; ++i) {
    const AccessibleObject child(atspi_accessible_get_child_at_index(node_.get(), i, nullptr));
    if (child) children.push_back(child);
  }
  return children;
}

AtspiRect AccessibleObject::Place() const {
  AtspiRect place{};
  auto* component = atspi_accessible_get_component_iface(node_.get());
  if (component == nullptr) return place;
  AtspiRect* extents = atspi_component_get_extents(component, ATSPI_COORD_TYPE_SCREEN, nullptr);
  if (extents != nullptr) place = *extents;
  g_free(extents);
  g_object_unref(component);
  return place;
}

std::string AccessibleObject::Line() const {
  if (node_ == nullptr) return "nothing";
  std::string line = WordFor(Role()) + " " + Name();
  const std::string value = Value();
  return value.empty() ? line : line + " = " + value;
}

void Walk(const AccessibleObject& root, const std::function<void(const AccessibleObject&)>& visit) {
  static const std::set<AtspiRole> kHolders = {ATSPI_ROLE_COMBO_BOX, ATSPI_ROLE_LIST,
                                               ATSPI_ROLE_TEXT};
  std::vector<AccessibleObject> ahead = {root};
  while (!ahead.empty()) {
    const AccessibleObject control = ahead.back();
    ahead.pop_back();
    if (!control || !control.Is(ATSPI_STATE_SHOWING)) continue;
    visit(control);
    if (kHolders.contains(control.Role())) continue;
    const std::vector<AccessibleObject> children = control.Children();
    ahead.insert(ahead.end(), children.rbegin(), children.rend());
  }
}

AccessibleObject WindowOf(const std::string& title) {
  const AccessibleObject desktop(atspi_get_desktop(0));
  for (const AccessibleObject& program : desktop.Children()) {
    for (const AccessibleObject& window : program.Children()) {
      if (window.Name() == title && window.Is(ATSPI_STATE_SHOWING)) return window;
    }
  }
  return {};
}

AccessibleObject FocusIn(const AccessibleObject& window) {
  AccessibleObject focus;
  Walk(window, [&focus](const AccessibleObject& control) {
    if (control.Is(ATSPI_STATE_FOCUSED)) focus = control;
  });
  return focus;
}

}  // namespace morvane
