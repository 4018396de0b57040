#pragma once

#include <QString>

namespace tavrix {

// Compares dotted version texts number by number ("4.10.0" is newer than "4.9.2"; "4.4" equals
// "4.4.0"). A part that is not a number (a "-beta" suffix) counts from its leading digits.
// Negative, zero or positive like strcmp.
[[nodiscard]] int compareVersions(const QString &a, const QString &b);

} // namespace tavrix
