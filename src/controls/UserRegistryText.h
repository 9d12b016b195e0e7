#pragma once
// The text of a settings file as QSettings writes it, so that files of earlier programs stay readable.

#include <QString>
#include <QVariant>

#include <string>
#include <string_view>

namespace ocuva {

/// The value of "Section/Name" in such a text, UTF-8; invalid if there is none. Several items are a list
/// of texts.
QVariant registryValue(std::string_view text, const QString& key);

/// The text with that value in it, in place of the one before; with an invalid value without it. Every other
/// line stays as it is.
std::string withRegistryValue(std::string_view text, const QString& key, const QVariant& value);

} // namespace ocuva
