#include "gui/QtText.h"

#include "runtime/Cp1252.h"
#include "screen/Control.h"
#include "screen/Controls.h"

namespace tolmen {

QString ToQt(const std::string& text) {
  return QString::fromStdString(Cp1252ToUtf8(text));
}

std::string FromQt(const QString& text) {
  return Utf8ToCp1252(text.toStdString());
}

QString LabelText(const std::string& caption) {
  return ToQt(StripAccessKeys(caption));
}

QColor ToQColor(long color) {
  if (IsSystemColor(color)) return QColor();
  return QColor(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                static_cast<int>((color >> 16) & 0xFF));
}

}  // namespace tolmen
