// TIFF pictures. Input: the file's bytes.
#include "Fuzz.h"
#include "tests/support/PictureSamples.h"

#include <filesystem>
#include <fstream>
#include <unistd.h>

using fuzz::require;
using namespace ocuva;

namespace {

/// One file for the whole run, gone at its end.
class InputFile {
public:
    InputFile()
        : m_path(std::filesystem::temp_directory_path() /
                 ("ocuva-fuzz-" + std::to_string(::getpid()) + ".tif")) {}
    ~InputFile() { std::filesystem::remove(m_path); }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    const std::filesystem::path& write(const std::uint8_t* bytes, std::size_t count) const {
        std::ofstream file(m_path, std::ios::binary | std::ios::trunc);
        file.write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(count));
        return m_path;
    }

private:
    std::filesystem::path m_path;
};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    static const InputFile input;
    const std::filesystem::path& path = input.write(bytes, count);
    Picture picture;
    try {
        picture = readTiffFile(path);
    } catch (const PictureFileError&) {
        return 0;
    }
    const QImage& image = picture.image;
    require(!image.isNull() && image.width() <= largestSide && image.height() <= largestSide,
            "a picture that was read is within the bounds");
    require(image.format() == QImage::Format_Grayscale8 || image.format() == QImage::Format_RGB888,
            "and grey or colour");
    writeTiffFile(path, picture);
    const Picture again = readTiffFile(path);
    require(again.image == image && again.notes == picture.notes, "and comes back when it is saved");
    return 0;
}
