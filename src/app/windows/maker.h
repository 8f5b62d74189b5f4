// The maker as named in the notices. The addresses use a domain reserved for examples.
#pragma once

#include <QStringView>
#include <array>

namespace app {

inline constexpr QStringView makerName = u"Norvas";
inline constexpr QStringView makerWeb = u"https://www.example.org/";
inline constexpr QStringView makerMail = u"info@example.org";
inline constexpr auto makerLines = std::to_array<QStringView>({
    u"Norvas 图书馆软件",
    u"地址：示例市示例路1号",
    u"邮政编码：000000",
});

} // namespace app
