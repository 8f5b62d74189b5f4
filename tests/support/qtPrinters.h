// Included by every test: GoogleTest, with printers that show Chinese texts instead of byte dumps.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

inline void PrintTo(const QString &text, std::ostream *out) {
    *out << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QStringList &texts, std::ostream *out) {
    *out << '[' << texts.join(QStringLiteral(" | ")).toStdString() << ']';
}
inline void PrintTo(const QByteArray &bytes, std::ostream *out) {
    *out << '"' << bytes.toPercentEncoding(" !#$&'()*+,/:;=?@[]{}<>").toStdString() << '"';
}
