// Where the system's Windows-1252 text meets Qt's Unicode, and the classic colours meet Qt's.
#pragma once

#include <QColor>
#include <QString>
#include <string>

namespace tolmen {

QString ToQt(const std::string& text);
std::string FromQt(const QString& text);
// A label's caption as it shows: "&&" is one ampersand, a single "&" marks an access key.
QString LabelText(const std::string& caption);
// A colour 0x00BBGGRR; an invalid QColor for a system colour (the palette's own is used).
QColor ToQColor(long color);

}  // namespace tolmen
