// Opens pictures as the program does and writes what it got as PPM files, for tools that compare them with
// the pixels that were put in. A refusal is a line on standard output.
#include "pictures/PictureFile.h"

#include <cstdio>
#include <exception>
#include <fstream>

namespace {

void writePpm(const std::filesystem::path& name, const QImage& picture) {
    const QImage image = picture.convertToFormat(QImage::Format_RGB888);
    std::ofstream file(name, std::ios::binary);
    file << "P6\n" << image.width() << ' ' << image.height() << "\n255\n";
    for (int y = 0; y < image.height(); ++y) {
        file.write(reinterpret_cast<const char*>(image.constScanLine(y)), std::streamsize{image.width()} * 3);
    }
}

} // namespace

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::filesystem::path name(argv[i]);
        try {
            writePpm(name.string() + ".ppm", ocuva::openPicture(name).image);
            std::printf("%s\topened\n", argv[i]);
        } catch (const std::exception& error) {
            std::printf("%s\t%s\n", argv[i], error.what());
        }
    }
    return 0;
}
