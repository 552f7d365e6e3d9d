// Texts of the host, in UTF-8, and those of Qt.
#pragma once

#include <QString>

#include <string>
#include <string_view>

[[nodiscard]] inline QString ToQt(std::string_view Text)
{
    return QString::fromUtf8(Text.data(), static_cast<qsizetype>(Text.size()));
}
[[nodiscard]] inline std::string FromQt(const QString& Text)
{
    return Text.toStdString();
}
