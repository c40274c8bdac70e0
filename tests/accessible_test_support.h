#pragma once
// What a screen reader would find in a window, read through Qt's accessibility interfaces.

#include <QAccessible>
#include <string>
#include <vector>

namespace quillmere::testing {

// The widgets a screen reader finds without a name: every showing one that is no table cell.
inline std::vector<std::string> Nameless(QAccessibleInterface* node) {
  std::vector<std::string> found;
  for (int i = 0; i < node->childCount(); ++i) {
    QAccessibleInterface* child = node->child(i);
    if (!child || !child->object() || child->state().invisible) continue;
    if (child->text(QAccessible::Name).trimmed().isEmpty())
      found.push_back(child->object()->objectName().toStdString());
    if (child->role() != QAccessible::Table) {
      const auto inner = Nameless(child);
      found.insert(found.end(), inner.begin(), inner.end());
    }
  }
  return found;
}

}  // namespace quillmere::testing
