#pragma once

#include <atspi/atspi.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace morvane {

/// A control as assistive technology sees it, over the bus.
class AccessibleObject {
 public:
  AccessibleObject() = default;
  /// Takes over the reference.
  explicit AccessibleObject(AtspiAccessible* node) {
    if (node != nullptr) node_.reset(node, &Drop);
  }

  explicit operator bool() const { return node_ != nullptr; }
  AtspiRole Role() const { return atspi_accessible_get_role(node_.get(), nullptr); }
  /// Its own name, behind that of its label where the label says more.
  std::string Name() const;
  /// What it holds: a text, an entry, a check mark or a description; empty where that is its name.
  std::string Value() const;
  bool Is(AtspiStateType state) const;
  std::vector<AccessibleObject> Children() const;
  /// Left, top, width and height on the display; nothing for a control that has just gone.
  AtspiRect Place() const;
  /// "push button Mode = Tile"
  std::string Line() const;

 private:
  static void Drop(AtspiAccessible* node) { g_object_unref(node); }
  static std::string Taken(char* text);
  std::string OwnName() const { return Taken(atspi_accessible_get_name(node_.get(), nullptr)); }

  std::shared_ptr<AtspiAccessible> node_;
};

/// Visits all that shows, in the order of the tree, without the rows of lists.
void Walk(const AccessibleObject& root, const std::function<void(const AccessibleObject&)>& visit);

/// The first window or dialog of the program with that title; null where there is none.
AccessibleObject WindowOf(const std::string& title);

/// The control that the keys go to. Those that hand them on come before it in the tree.
AccessibleObject FocusIn(const AccessibleObject& window);

}  // namespace morvane
