#pragma once

#include <QString>

namespace tavrix {

// orvanehub(1) in roff, written from the same option table as `--help`
// (commandlinereference.h): the build makes the packaged manual page with it.
[[nodiscard]] QString commandLineManPage(const QString &version);

// Text made safe for roff: backslashes and hyphens escaped, no line starting with a control character.
[[nodiscard]] QString roffEscaped(const QString &text);

} // namespace tavrix
