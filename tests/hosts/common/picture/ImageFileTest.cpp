#include "hosts/common/picture/ImageFile.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <tiffio.h>
#include <vector>
#ifndef _WIN32
#include <csignal>
#include <sys/resource.h>
#endif

namespace hosts {
namespace {

namespace fs = std::filesystem;

std::uint32_t pixelAt(int x, int y) {
    return 0xff000000U | static_cast<std::uint32_t>(x * 7 % 256) << 16U |
           static_cast<std::uint32_t>(y * 11 % 256) << 8U | static_cast<std::uint32_t>((x + y) % 256);
}

std::uint8_t greyOf(std::uint32_t p) {
    return static_cast<std::uint8_t>((77 * (p >> 16U & 255U) + 150 * (p >> 8U & 255U) + 29 * (p & 255U)) >>
                                     8U);
}

class ImageFile : public ::testing::Test {
protected:
    static constexpr int width = 37; // rows need padding
    static constexpr int height = 21;

    void SetUp() override {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        folder = fs::temp_directory_path() / (std::string("ocuva_image_") + info->name());
        fs::remove_all(folder);
        fs::create_directories(folder);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                pixels.push_back(pixelAt(x, y));
            }
        }
    }
    void TearDown() override { fs::remove_all(folder); }

    static std::string contents(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    std::ptrdiff_t filesInFolder() const {
        return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
    }

    fs::path folder;
    std::vector<std::uint32_t> pixels;
    std::string error;
};

TEST_F(ImageFile, ATiffReadsBackAsItWas) {
    for (const bool colour : {true, false}) {
        const fs::path path = folder / "a.tif";
        ASSERT_TRUE(saveTiff(path, pixels.data(), width, height, colour, error)) << error;
        TIFF* file = TIFFOpen(path.string().c_str(), "r");
        ASSERT_NE(file, nullptr);
        std::uint16_t samples = 0;
        TIFFGetField(file, TIFFTAG_SAMPLESPERPIXEL, &samples);
        EXPECT_EQ(samples, colour ? 3 : 1);
        std::vector<std::uint32_t> back(pixels.size());
        EXPECT_EQ(TIFFReadRGBAImageOriented(file, width, height, back.data(), ORIENTATION_TOPLEFT, 1), 1);
        TIFFClose(file);
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            const std::uint32_t p = colour ? pixels[i] : greyOf(pixels[i]) * 0x010101U;
            EXPECT_EQ(TIFFGetR(back[i]), p >> 16U & 255U);
            EXPECT_EQ(TIFFGetG(back[i]), p >> 8U & 255U);
            EXPECT_EQ(TIFFGetB(back[i]), p & 255U);
        }
    }
    EXPECT_EQ(filesInFolder(), 1);
}

TEST_F(ImageFile, ABmpReadsBackAsItWas) {
    for (const bool colour : {true, false}) {
        const fs::path path = folder / "a.bmp";
        ASSERT_TRUE(saveBmp(path, pixels.data(), width, height, colour, error)) << error;
        const std::string bytes = contents(path);
        const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(bytes.at(i)); };
        const auto word = [&](std::size_t i) {
            return byte(i) | byte(i + 1) << 8 | byte(i + 2) << 16 | byte(i + 3) << 24;
        };
        EXPECT_EQ(bytes.substr(0, 2), "BM");
        EXPECT_EQ(word(2), static_cast<int>(bytes.size()));
        EXPECT_EQ(word(18), width);
        EXPECT_EQ(word(22), height);
        EXPECT_EQ(byte(28), colour ? 24 : 8);
        const auto start = static_cast<std::size_t>(word(10));
        const std::size_t line = colour ? 112 : 40;
        ASSERT_EQ(bytes.size(), start + line * height);
        for (std::size_t y = 0; y < height; ++y) {
            for (std::size_t x = 0; x < width; ++x) {
                const std::uint32_t p = pixels[y * width + x];
                const std::size_t at = start + (height - 1 - y) * line + x * (colour ? 3 : 1);
                if (colour) {
                    EXPECT_EQ(byte(at), p & 255U);
                    EXPECT_EQ(byte(at + 1), p >> 8U & 255U);
                    EXPECT_EQ(byte(at + 2), p >> 16U & 255U);
                } else {
                    EXPECT_EQ(byte(54U + byte(at) * 4U), greyOf(p)) << "through the palette";
                }
            }
        }
    }
    EXPECT_EQ(filesInFolder(), 1);
}

TEST_F(ImageFile, AMissingFolderIsReported) {
    EXPECT_FALSE(saveTiff(folder / "none" / "a.tif", pixels.data(), width, height, true, error));
    EXPECT_NE(error.find("a.tif"), std::string::npos);
    error.clear();
    EXPECT_FALSE(saveBmp(folder / "none" / "a.bmp", pixels.data(), width, height, true, error));
    EXPECT_NE(error.find("a.bmp"), std::string::npos);
}

TEST_F(ImageFile, ATargetThatCannotBeReplacedStaysAndNothingIsLeftBehind) {
    fs::create_directories(folder / "a.tif" / "inside");
    EXPECT_FALSE(saveTiff(folder / "a.tif", pixels.data(), width, height, true, error));
    EXPECT_FALSE(saveBmp(folder / "a.tif", pixels.data(), width, height, true, error));
    EXPECT_FALSE(error.empty());
    EXPECT_TRUE(fs::exists(folder / "a.tif" / "inside"));
    EXPECT_EQ(filesInFolder(), 1);
}

TEST_F(ImageFile, NoPictureIsRefused) {
    EXPECT_FALSE(saveBmp(folder / "a.bmp", pixels.data(), 0, height, true, error));
    EXPECT_FALSE(saveTiff(folder / "a.tif", nullptr, width, height, true, error));
    EXPECT_FALSE(saveTiff(folder / "a.tif", pixels.data(), width, -1, true, error));
    EXPECT_EQ(filesInFolder(), 0);
}

#ifndef _WIN32
// No file of this process may grow beyond some bytes, as on a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_before{};
    void (*m_handler)(int) = nullptr;
};

TEST_F(ImageFile, AFullDiskLeavesTheEarlierFileWhole) {
    for (const char* name : {"a.tif", "a.bmp"}) {
        const fs::path path = folder / name;
        std::ofstream(path) << "earlier";
        bool saved = true;
        {
            const FullDisk full(1000);
            saved = path.extension() == ".tif" ? saveTiff(path, pixels.data(), width, height, true, error)
                                               : saveBmp(path, pixels.data(), width, height, true, error);
        }
        EXPECT_FALSE(saved) << name;
        EXPECT_FALSE(error.empty());
        EXPECT_EQ(contents(path), "earlier") << name;
    }
    EXPECT_EQ(filesInFolder(), 2);
}
#endif

} // namespace
} // namespace hosts
