#include "samples/writeSample.h"

#include "base/TrappedError.h"

namespace tarsel::samples {

QString samplePath(const QString& folder, const Sample& sample) {
    return folder + QLatin1Char('/') + sample.name + QStringLiteral(".jpg");
}

void writeSample(const QString& folder, const Sample& sample) {
    const QString path = samplePath(folder, sample);
    if (!sample.take().save(path, "JPEG", 90))
        fail(ErrorNumber::PermissionDenied, path);
}

} // namespace tarsel::samples
