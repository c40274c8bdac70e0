#pragma once
// What the windows tell a screen reader beyond what Qt guesses: the role of our own windows and
// pictures, and captions written only when they change, so the accessibility bus carries only
// what a listener would want to hear.

#include <QAccessible>
#include <QString>

class QLabel;
class QLineEdit;
class QWidget;

namespace quillmere {

// Gives `widget` a role of its own. Only a class with its own meta-object (Q_OBJECT) is asked
// for, since Qt answers for the plain widget classes itself. Call it before anything else is done
// to the widget: its first accessibility event fixes its interface.
void SetAccessibleRole(QWidget* widget, QAccessible::Role role);

// Writes the text only when it differs: an unchanged write still reaches the bus as an event.
void WriteText(QLineEdit* box, const QString& text);

// A value label: its caption is its accessible name, so it never gets a fixed one. While the
// caption is empty the label is hidden (its place kept), so that no nameless label is read.
void WriteValue(QLabel* label, const QString& text);

}  // namespace quillmere
