#include "hosts/common/picture/ImageFile.h"

#include "base/AsideFile.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <functional>
#include <memory>
#include <system_error>
#include <tiffio.h>
#include <vector>

namespace hosts {
namespace {

constexpr int kMaxSide = 32767; // keeps every size within 32 bits

std::uint8_t luminance(std::uint32_t pixel) {
    return static_cast<std::uint8_t>(
        (77U * (pixel >> 16U & 0xffU) + 150U * (pixel >> 8U & 0xffU) + 29U * (pixel & 0xffU)) >> 8U);
}

// One row as bytes: grey, or three channels in the given order of shifts.
void packRow(const std::uint32_t* pixels, int width, bool colour, const unsigned (&shifts)[3],
             std::uint8_t* out) {
    for (int i = 0; i < width; ++i) {
        if (!colour) {
            *out++ = luminance(pixels[i]);
            continue;
        }
        for (const unsigned shift : shifts) {
            *out++ = static_cast<std::uint8_t>(pixels[i] >> shift);
        }
    }
}

constexpr unsigned kRedFirst[3] = {16, 8, 0};
constexpr unsigned kBlueFirst[3] = {0, 8, 16};

bool sizeIsSane(const std::uint32_t* pixels, int width, int height, std::string& error) {
    if (pixels == nullptr || width < 1 || height < 1 || width > kMaxSide || height > kMaxSide) {
        error = "There is no picture of " + std::to_string(width) + " x " + std::to_string(height) +
                " pixels to save";
        return false;
    }
    return true;
}

// Runs `write` on a temporary file; its result or exception decides whether the file replaces the target.
bool writeAside(const std::filesystem::path& path, std::string& error,
                const std::function<bool(const ocuva::RegularFile&, std::string&)>& write) {
    const auto fail = [&](const std::string& reason) {
        error = "Cannot write \"" + path.string() + "\": " + reason;
        return false;
    };
    try {
        ocuva::AsideFile aside(path);
        if (const std::error_code refusal = aside.create()) {
            return fail(refusal.message());
        }
        std::string reason;
        if (!write(aside.file(), reason)) {
            return fail(reason.empty() ? "the disk refused it" : reason);
        }
        const std::error_code refusal = aside.moveIntoPlace();
        return !refusal || fail(refusal.message());
    } catch (const std::exception& failure) {
        return fail(failure.what());
    }
}

int noteTiffError(TIFF* /*file*/, void* reason, const char* /*module*/, const char* format,
                  va_list arguments) {
    char text[256];
    std::vsnprintf(text, sizeof text, format, arguments);
    static_cast<std::string*>(reason)->assign(text);
    return 1;
}

bool writeTiff(const ocuva::RegularFile& target, const std::uint32_t* pixels, int width, int height,
               bool colour, std::string& reason) {
    const std::unique_ptr<TIFFOpenOptions, decltype(&TIFFOpenOptionsFree)> options(TIFFOpenOptionsAlloc(),
                                                                                   TIFFOpenOptionsFree);
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), noteTiffError, &reason);
    const int number = target.numberForTiff();
    std::unique_ptr<TIFF, decltype(&TIFFClose)> file(TIFFFdOpenExt(number, "the file", "w", options.get()),
                                                     TIFFClose);
    if (!file) {
        ocuva::RegularFile::closeNumber(number);
        return false;
    }
    const int samples = colour ? 3 : 1;
    TIFFSetField(file.get(), TIFFTAG_IMAGEWIDTH, static_cast<std::uint32_t>(width));
    TIFFSetField(file.get(), TIFFTAG_IMAGELENGTH, static_cast<std::uint32_t>(height));
    TIFFSetField(file.get(), TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(file.get(), TIFFTAG_SAMPLESPERPIXEL, samples);
    TIFFSetField(file.get(), TIFFTAG_PHOTOMETRIC, colour ? PHOTOMETRIC_RGB : PHOTOMETRIC_MINISBLACK);
    TIFFSetField(file.get(), TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(file.get(), TIFFTAG_COMPRESSION, COMPRESSION_NONE);
    TIFFSetField(file.get(), TIFFTAG_ROWSPERSTRIP, static_cast<std::uint32_t>(height));
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) *
                                    static_cast<std::size_t>(samples));
    const std::size_t line = static_cast<std::size_t>(width) * static_cast<std::size_t>(samples);
    for (int y = 0; y < height; ++y) {
        packRow(pixels + static_cast<std::ptrdiff_t>(y) * width, width, colour, kRedFirst,
                &bytes[static_cast<std::size_t>(y) * line]);
    }
    const auto size = static_cast<tmsize_t>(bytes.size());
    return TIFFWriteEncodedStrip(file.get(), 0, bytes.data(), size) == size && TIFFFlush(file.get()) == 1;
}

void putLittleEndian(std::vector<std::uint8_t>& out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) {
        out.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
    }
}

std::vector<std::uint8_t> bmpHeader(int width, int height, bool colour, std::uint32_t pixelBytes) {
    const std::uint32_t paletteEntries = colour ? 0 : 256;
    const std::uint32_t offset = 14 + 40 + paletteEntries * 4;
    std::vector<std::uint8_t> header{'B', 'M'};
    putLittleEndian(header, offset + pixelBytes, 4);
    putLittleEndian(header, 0, 4);
    putLittleEndian(header, offset, 4);
    putLittleEndian(header, 40, 4);
    putLittleEndian(header, static_cast<std::uint32_t>(width), 4);
    putLittleEndian(header, static_cast<std::uint32_t>(height), 4); // positive: rows from the bottom up
    putLittleEndian(header, 1, 2);
    putLittleEndian(header, colour ? 24 : 8, 2);
    putLittleEndian(header, 0, 4); // not compressed
    putLittleEndian(header, pixelBytes, 4);
    putLittleEndian(header, 2835, 4); // 72 dots per inch
    putLittleEndian(header, 2835, 4);
    putLittleEndian(header, paletteEntries, 4);
    putLittleEndian(header, 0, 4);
    for (std::uint32_t grey = 0; grey < paletteEntries; ++grey) {
        putLittleEndian(header, grey * 0x010101U, 4);
    }
    return header;
}

bool writeBmp(const ocuva::RegularFile& target, const std::uint32_t* pixels, int width, int height,
              bool colour, std::string& reason) {
    const std::uint32_t line = (static_cast<std::uint32_t>(width) * (colour ? 3U : 1U) + 3U) / 4U * 4U;
    std::vector<std::uint8_t> bytes =
        bmpHeader(width, height, colour, line * static_cast<std::uint32_t>(height));
    const std::size_t start = bytes.size();
    bytes.resize(start + static_cast<std::size_t>(line) * static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y) {
        packRow(pixels + static_cast<std::ptrdiff_t>(height - 1 - y) * width, width, colour, kBlueFirst,
                &bytes[start + static_cast<std::size_t>(y) * line]);
    }
    std::error_code error;
    target.write({reinterpret_cast<const char*>(bytes.data()), bytes.size()}, error);
    if (error) {
        reason = error.message();
        return false;
    }
    return true;
}

} // namespace

bool saveTiff(const std::filesystem::path& path, const std::uint32_t* pixels, int width, int height,
              bool colour, std::string& error) {
    return sizeIsSane(pixels, width, height, error) &&
           writeAside(path, error, [&](const ocuva::RegularFile& aside, std::string& reason) {
               return writeTiff(aside, pixels, width, height, colour, reason);
           });
}

bool saveBmp(const std::filesystem::path& path, const std::uint32_t* pixels, int width, int height,
             bool colour, std::string& error) {
    return sizeIsSane(pixels, width, height, error) &&
           writeAside(path, error, [&](const ocuva::RegularFile& aside, std::string& reason) {
               return writeBmp(aside, pixels, width, height, colour, reason);
           });
}

} // namespace hosts
