// Fuzzes what the update server sends: the manifest and the UF2 image. The checks below
// are what the update service relies on: an accepted manifest only holds releases with a
// version, an http(s) image address, a size within bounds and a lower-case SHA-256, and an
// accepted UF2 image is whole 512-byte blocks whose numbers run 0..N-1.

#include "firmwaremanifest.h"
#include "uf2image.h"

#include <QRegularExpression>
#include <QtEndian>

#include <cstdio>
#include <cstdlib>

using namespace tavrix;

namespace {

[[noreturn]] void fail(const char *what)
{
    std::fprintf(stderr, "fuzz_firmwarefiles: %s\n", what);
    std::abort();
}

void checkManifest(const QByteArray &bytes)
{
    static const QUrl base(QStringLiteral("https://updates.example/hub/manifest.json"));
    static const QRegularExpression hash(QStringLiteral("^[0-9a-f]{64}$"));
    const FirmwareManifest::Result parsed = FirmwareManifest::parse(bytes, base);
    if (parsed.manifest.has_value() == !parsed.error.isEmpty())
        fail("a manifest both accepted and refused, or neither");
    if (!parsed.manifest)
        return;
    for (const FirmwareDevice device :
         {FirmwareDevice::Receiver, FirmwareDevice::Transmitter, FirmwareDevice::Soc}) {
        const std::optional<FirmwareRelease> release = parsed.manifest->release(device);
        if (!release)
            continue;
        if (release->version.isEmpty() || !hash.match(release->sha256).hasMatch())
            fail("a release without a version or a clean hash");
        if (release->size < 1 || release->size > FirmwareManifest::kMaxImageBytes)
            fail("a release size out of bounds");
        if (!release->imageUrl.isValid())
            fail("a release with an invalid image address");
    }
}

void checkUf2(const QByteArray &bytes)
{
    if (!Uf2Image::validate(bytes).isEmpty())
        return;
    if (bytes.isEmpty() || bytes.size() % Uf2Image::kBlockSize != 0)
        fail("an image accepted that is not whole blocks");
    const quint32 blocks = quint32(bytes.size() / Uf2Image::kBlockSize);
    for (quint32 i = 0; i < blocks; ++i) {
        const char *block = bytes.constData() + i * Uf2Image::kBlockSize;
        if (qFromLittleEndian<quint32>(block + 20) != i || qFromLittleEndian<quint32>(block + 24) != blocks)
            fail("an image accepted with blocks out of order");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    checkManifest(bytes);
    checkUf2(bytes);
    return 0;
}
