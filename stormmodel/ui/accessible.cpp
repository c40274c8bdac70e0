#include "stormmodel/ui/accessible.h"

#include <QAccessibleWidget>
#include <QLabel>
#include <QLineEdit>
#include <QVariant>

namespace quillmere {
namespace {

constexpr char kRoleProperty[] = "quillmereAccessibleRole";

QAccessibleInterface* RoleFactory(const QString&, QObject* object) {
  if (!object || !object->isWidgetType()) return nullptr;
  const QVariant role = object->property(kRoleProperty);
  if (!role.isValid()) return nullptr;
  return new QAccessibleWidget(static_cast<QWidget*>(object),
                               static_cast<QAccessible::Role>(role.toInt()));
}

}  // namespace

void SetAccessibleRole(QWidget* widget, QAccessible::Role role) {
  QAccessible::installFactory(RoleFactory);  // once: a second install is ignored
  widget->setProperty(kRoleProperty, static_cast<int>(role));
}

void WriteText(QLineEdit* box, const QString& text) {
  if (box->text() != text) box->setText(text);
}

void WriteValue(QLabel* label, const QString& text) {
  if (label->text() != text) label->setText(text);
  if (label->isHidden() != text.isEmpty()) {
    QSizePolicy policy = label->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    label->setSizePolicy(policy);
    label->setVisible(!text.isEmpty());
  }
}

}  // namespace quillmere
