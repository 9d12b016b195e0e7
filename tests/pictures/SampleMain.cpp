// Saves sample pictures into a folder, for readers that are not ours.
#include "pictures/PictureFile.h"
#include "tests/support/PictureSamples.h"

#include <cstdio>
#include <exception>

int main(int argc, char** argv) {
    using namespace ocuva;
    if (argc != 2) {
        std::fprintf(stderr, "usage: picture_samples FOLDER\n");
        return 2;
    }
    const std::filesystem::path folder(argv[1]);
    try {
        const Picture grey = samplePicture(sampleImage(765, 576, QImage::Format_Grayscale8));
        const Picture colour = samplePicture(sampleImage(765, 576, QImage::Format_RGB888));
        for (const char* extension : {".tif", ".bmp"}) {
            savePicture(folder / (std::string("grey") + extension), grey, {});
            savePicture(folder / (std::string("colour") + extension), colour, {});
        }
        Picture unknown = grey;
        unknown.scale = {};
        savePicture(folder / "no-scale.tif", unknown, {});
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
