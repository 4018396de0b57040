#pragma once

#include <QString>
#include <QUrl>

namespace tavrix {

// Where the update manifest is read from: the address saved in the settings store
// ("firmware/updateUrl"), or the maker's download server when none is saved. A run may use
// another one (--update-url) without changing the saved one.
[[nodiscard]] QUrl savedUpdateUrl();

// url as an update address, or an empty URL when it is not an absolute http(s) address.
[[nodiscard]] QUrl updateUrlFromText(const QString &text);

// The hub's own version ("1.3.2"), the one `orvanehub --version` prints.
[[nodiscard]] QString hubVersion();

} // namespace tavrix
