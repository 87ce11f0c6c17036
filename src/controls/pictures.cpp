// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/pictures.h"

#include "platform/desktop.h"

#include <QFile>

#include <array>

using namespace Qt::StringLiterals;

namespace
{
struct PictureFile {
    const char *name;
    const char *ending;
};

constexpr std::array<PictureFile, static_cast<std::size_t>(Picture::Count)> files = {{
    {"Splash", ".jpg"},        {"Mp3Frm", ".jpg"},        {"Playlist", ".jpg"},      {"SongSearch", ".jpg"},
    {"TagEdit", ".jpg"},       {"FormatMp3", ".jpg"},     {"ToolBar", ".jpg"},       {"frmOptions", ".jpg"},
    {"About", ".jpg"},         {"frmNoTag", ".jpg"},      {"bPlay", ".png"},         {"bPlay-hover", ".png"},
    {"bPlay-pressed", ".png"}, {"bPause", ".png"},        {"bPause-hover", ".png"},  {"bPause-pressed", ".png"},
    {"bPause-on", ".png"},     {"bStop", ".png"},         {"bStop-hover", ".png"},   {"bStop-pressed", ".png"},
    {"bPrev", ".png"},         {"bPrev-hover", ".png"},   {"bPrev-pressed", ".png"}, {"bNext", ".png"},
    {"bNext-hover", ".png"},   {"bNext-pressed", ".png"}, {"Picture3-0", ".png"},    {"Picture3-1", ".png"},
    {"Picture3-2", ".png"},    {"icon-16", ".png"},       {"icon-22", ".png"},       {"icon-32", ".png"},
    {"icon-48", ".png"},
}};
static_assert(files.back().name != nullptr, "every picture needs a file");

// The decoder fills what a cut JPEG lacks with grey and calls it a picture. A whole one has an end mark.
bool isWhole(const QByteArray &bytes, const PictureFile &file)
{
    return QByteArrayView(file.ending) != QByteArrayView(".jpg") || bytes.endsWith("\xFF\xD9");
}

QImage load(const PictureFile &file, const QString &scale)
{
    QFile source(skinsFolder() + u'/' + QLatin1StringView(file.name) + scale + QLatin1StringView(file.ending));
    if (!source.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = source.readAll();
    return isWhole(bytes, file) ? QImage::fromData(bytes) : QImage();
}

const PictureFile &fileOf(Picture which)
{
    return files.at(static_cast<std::size_t>(which));
}
} // namespace

// Scaled once here, and well, rather than at each painting.
QPixmap picture(Picture which, qreal devicePixelRatio)
{
    QImage image = devicePixelRatio > 1 ? load(fileOf(which), u"@2x"_s) : QImage();
    const qreal scale = image.isNull() ? devicePixelRatio : devicePixelRatio / 2;
    if (image.isNull())
        image = pictureImage(which);
    if (scale != 1 && !image.isNull())
        image = image.scaled((QSizeF(image.size()) * scale).toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    image.setDevicePixelRatio(devicePixelRatio);
    return QPixmap::fromImage(image);
}

void keepPicture(std::optional<QPixmap> &kept, Picture which, qreal devicePixelRatio)
{
    if (!kept || (!kept->isNull() && kept->devicePixelRatio() != devicePixelRatio))
        kept = picture(which, devicePixelRatio);
}

QImage pictureImage(Picture which)
{
    return load(fileOf(which), {});
}
