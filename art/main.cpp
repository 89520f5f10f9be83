#include <QGuiApplication>
#include <QImage>
#include <cstdio>
#include <cstdlib>

#include "materials.h"
#include "pictures.h"

namespace {

bool make(const Picture& picture, const QString& folder) {
    QImage image(picture.size * materials::density, QImage::Format_RGB888);
    image.fill(Qt::black);
    {
        QPainter painter(&image);
        painter.scale(materials::density, materials::density);
        picture.paint(painter);
    }
    const QString path = folder + '/' + picture.name + ".png";
    if (image.save(path, "PNG", 0)) return true;
    std::fprintf(stderr, "make_pictures: can't write %s\n", qPrintable(path));
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    materials::density = argc == 3 ? std::atoi(argv[2]) : 1;
    if (argc < 2 || argc > 3 || materials::density < 1 || materials::density > 4) {
        std::fprintf(stderr, "usage: make_pictures FOLDER [DENSITY]\n");
        return 2;
    }
    for (const auto& pictures : {tilePictures(), tablePictures()})
        for (const Picture& picture : pictures)
            if (!make(picture, argv[1])) return 1;
    return 0;
}
