// Texts of the logic (UTF-8) and texts of the toolkit.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace qt {

inline QString ToQt(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQt(const QString& text)
{
    return text.toStdString();
}

}  // namespace qt
