#pragma once

#include <QByteArray>
#include <QRandomGenerator>

/// Changes of an input that keep its outer form: a change of a packed or checksummed file by chance
/// alone would only ever be refused at its first check.
namespace Mutators {

/// A change of bytes by chance.
QByteArray bytes(const QByteArray &data, QRandomGenerator *random);
/// One value of a JSON text replaced, moved, removed or repeated. Empty if it is no JSON.
QByteArray json(const QByteArray &text, QRandomGenerator *random);
/// A PNG with a header, pixels or chunks changed, and all checksums right. Empty if it is none.
QByteArray png(const QByteArray &file, QRandomGenerator *random);
/// A ZIP archive with an entry's content, place, name or headers changed, and all checksums right
/// but where a lie is the change. Empty if it is none.
QByteArray zip(const QByteArray &file, QRandomGenerator *random);

/// A change that suits what @p data looks like; never empty unless chance made it so.
QByteArray any(const QByteArray &data, QRandomGenerator *random);

} // namespace Mutators
