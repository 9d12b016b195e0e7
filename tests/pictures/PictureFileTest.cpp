#include "pictures/PictureFile.h"

#include "pictures/BmpFile.h"
#include "pictures/PictureDescription.h"
#include "pictures/SaveWarnings.h"
#include "pictures/TiffFile.h"
#include "tests/support/PictureSamples.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <tiffio.h>

using namespace ocuva;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

const CalibrationPoints points{true, {{{0, 0, -320, 240, 5}, {10000, 10000, 320, -240, 5}, {}}}};

struct SavedPictures : testing::Test {
    TempFolder folder;
    QImage grey = sampleImage(61, 40, QImage::Format_Grayscale8); // rows that need padding in an image
    QImage colour = sampleImage(61, 40, QImage::Format_RGB888);

    std::size_t files() const {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(folder.path()), {}));
    }
    std::string errorOfSaving(const std::filesystem::path& name, const QImage& image) const {
        try {
            savePicture(name, samplePicture(image), points);
            return "";
        } catch (const PictureFileError& error) {
            return error.what();
        }
    }
    std::string errorOfOpening(const std::string& name) const {
        try {
            openPicture(folder / name);
            return "";
        } catch (const PictureFileError& error) {
            return error.what();
        }
    }
    // A TIFF of another program's making.
    void writeForeign(const std::string& name, const std::function<void(TIFF*)>& write) const {
        TIFF* file = TIFFOpen((folder / name).string().c_str(), "w");
        TIFFSetField(file, TIFFTAG_IMAGEWIDTH, 4);
        TIFFSetField(file, TIFFTAG_IMAGELENGTH, 2);
        TIFFSetField(file, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
        write(file);
        TIFFClose(file);
    }
};

struct OpenedPictures : SavedPictures {};

std::string bytesOf(const TempFolder& folder, const std::string& name) { return folder.read(name); }

} // namespace

TEST_F(SavedPictures, ComeBackToTheLastBitInGreyAndInColourFromTiffAndFromBmp) {
    for (const QImage& image : {grey, colour}) {
        for (const char* name : {"Video.tif", "Video.TIFF", "Video.bmp", "Video.BMP"}) {
            savePicture(folder / name, samplePicture(image), points);
            const Picture opened = openPicture(folder / name);
            EXPECT_EQ(opened.image.format(), image.format()) << name;
            EXPECT_EQ(opened.image, image) << name;
        }
    }
}

TEST_F(SavedPictures, OfThirtyTwoBitsAPixelAreSavedAsColour) {
    savePicture(folder / "Video.tif", samplePicture(colour.convertToFormat(QImage::Format_RGB32)), points);
    EXPECT_EQ(openPicture(folder / "Video.tif").image, colour);
}

TEST_F(SavedPictures, GoInManyStripsWhenTheyAreLarge) {
    const QImage large = sampleImage(1501, 1999, QImage::Format_RGB888);
    savePicture(folder / "Video.tif", samplePicture(large), points);
    EXPECT_EQ(openPicture(folder / "Video.tif").image, large);
}

TEST_F(SavedPictures, HaveOnlyTheirDescriptionNextToThem) {
    savePicture(folder / "Video.tif", samplePicture(grey), points);
    EXPECT_EQ(readDescription(folder / "Video.tif"), points);
    EXPECT_EQ(files(), 2U);
}

TEST_F(SavedPictures, OfTheSameNameReplaceTheOnesBeforeWithTheirDescription) {
    savePicture(folder / "Video.tif", samplePicture(grey), {});
    savePicture(folder / "Video.tif", samplePicture(colour), points);
    EXPECT_EQ(openPicture(folder / "Video.tif").image, colour);
    EXPECT_EQ(readDescription(folder / "Video.tif"), points);
}

TEST_F(SavedPictures, CarryScaleNotesAndTimeInATiff) {
    const Picture saved = samplePicture(grey);
    savePicture(folder / "Video.tif", saved, points);
    const Picture opened = openPicture(folder / "Video.tif");
    EXPECT_NEAR(opened.scale.pixelsPerCmX, 61 / 640.0 * 10000.0, 1e-3);
    EXPECT_NEAR(opened.scale.pixelsPerCmY, 40 / 480.0 * 10000.0, 1e-3);
    EXPECT_EQ(opened.notes, saved.notes);
    EXPECT_EQ(opened.taken, saved.taken);
}

TEST_F(SavedPictures, CarryTheirScaleInABmpInPixelsPerMetre) {
    savePicture(folder / "Video.bmp", samplePicture(grey), points);
    const QImage read(QString::fromStdU16String((folder / "Video.bmp").u16string()));
    EXPECT_EQ(read.dotsPerMeterX(), 95312); // 61 pixels over 640 micrometres, half to even
    EXPECT_EQ(read.dotsPerMeterY(), 83333);
}

TEST_F(SavedPictures, WithoutAMagnificationTellNoScale) {
    for (const Magnification& none :
         {Magnification{0, 2560.0F, 1920.0F}, Magnification{400, 0.0F, 1920.0F},
          Magnification{-1, 2560.0F, 1920.0F}, Magnification{400, std::nanf(""), 1.0F}}) {
        Picture picture = samplePicture(grey);
        picture.scale = fieldScale(none, grey.size());
        EXPECT_FALSE(picture.scale.isKnown());
        EXPECT_FALSE(imageDescription(picture).contains("unit"));
        savePicture(folder / "Video.tif", picture, points);
        EXPECT_FALSE(openPicture(folder / "Video.tif").scale.isKnown());
    }
}

TEST_F(SavedPictures, DescribeThemselvesInLinesOfKeyAndValueBelowTheVersion) {
    EXPECT_EQ(imageDescription(samplePicture(grey)).toStdString(),
              "ImageJ=1.11a\nunit=um\nstageX=-320\nstageY=1250\nstageZ=7\nmagnification=400\n"
              "fieldWidth=640\nfieldHeight=480\n");
}

TEST_F(SavedPictures, UnderANameOfAnotherKindAreRefused) {
    for (const char* name : {"Video.png", "Video", "Video.tif.bak", "tif", "Video."}) {
        EXPECT_THAT(errorOfSaving(folder / name, grey), HasSubstr("must end in .tif or .bmp")) << name;
    }
    EXPECT_EQ(files(), 0U);
}

TEST_F(SavedPictures, InAFolderThatIsGoneAreRefused) {
    EXPECT_THAT(errorOfSaving(folder / "gone/Video.tif", grey),
                AllOf(HasSubstr("Video.tif"), HasSubstr("no such folder")));
    EXPECT_EQ(files(), 0U);
}

TEST_F(SavedPictures, InPlaceOfAFolderAreRefusedAndTheFolderStays) {
    std::filesystem::create_directory(folder / "Video.tif");
    EXPECT_THAT(errorOfSaving(folder / "Video.tif", grey), HasSubstr("it is a folder"));
    EXPECT_TRUE(std::filesystem::is_directory(folder / "Video.tif"));
    EXPECT_EQ(files(), 1U);
}

TEST_F(SavedPictures, WithoutAnImageAreRefused) {
    EXPECT_THAT(errorOfSaving(folder / "Video.tif", QImage()), HasSubstr("0 x 0 pixels"));
    EXPECT_EQ(files(), 0U);
}

TEST_F(SavedPictures, WiderOrHigherThanSixteenBitsTellAreRefused) {
    for (const QSize size : {QSize(32768, 1), QSize(1, 32768)}) {
        QImage image(size, QImage::Format_Grayscale8);
        image.fill(0);
        EXPECT_THAT(errorOfSaving(folder / "Video.tif", image), HasSubstr("32768"));
    }
    EXPECT_EQ(files(), 0u);
}

TEST_F(SavedPictures, ThatWouldReplaceAWriteProtectedFileLeaveTheOldPictureAndItsDescriptionWhole) {
    for (const char* blocked : {"Video.tif", "Video.pic"}) {
        savePicture(folder / "Video.tif", samplePicture(colour), points);
        std::filesystem::permissions(folder / blocked, std::filesystem::perms::owner_read);
        EXPECT_THAT(errorOfSaving(folder / "Video.tif", grey),
                    AllOf(HasSubstr("Video.tif\" could not be saved"), HasSubstr("write-protected")));
        EXPECT_EQ(openPicture(folder / "Video.tif").image, colour);
        EXPECT_EQ(readDescription(folder / "Video.tif"), points);
        EXPECT_EQ(files(), 2U);
        std::filesystem::permissions(folder / blocked, std::filesystem::perms::owner_all);
    }
}

TEST_F(SavedPictures, WhoseDescriptionFindsNoPlaceAreRefusedBeforeAnythingChanges) {
    folder.write("Video.pic/x", "a folder in the description's place");
    EXPECT_THAT(errorOfSaving(folder / "Video.tif", grey),
                AllOf(HasSubstr("Video.tif\" could not be saved"), HasSubstr("Video.pic"),
                      HasSubstr("Is a directory")));
    EXPECT_EQ(files(), 1U);
}

TEST_F(OpenedPictures, ThatAreMissingOrFoldersAreRefusedWithAReason) {
    EXPECT_THAT(errorOfOpening("Video.tif"), HasSubstr("no such file"));
    std::filesystem::create_directory(folder / "Video.tif");
    EXPECT_THAT(errorOfOpening("Video.tif"), HasSubstr("cannot be read"));
}

TEST_F(OpenedPictures, AreRecognisedByTheirFirstBytesAndNotByTheirNames) {
    writeTiffFile(folder / "really-tiff.bmp", samplePicture(grey));
    EXPECT_EQ(openPicture(folder / "really-tiff.bmp").image, grey);
    folder.write("text.tif", "Hello");
    EXPECT_THAT(errorOfOpening("text.tif"), HasSubstr("neither a TIFF nor a BMP"));
    folder.write("empty.tif", "");
    EXPECT_THAT(errorOfOpening("empty.tif"), HasSubstr("neither a TIFF nor a BMP"));
}

TEST_F(OpenedPictures, ThatAreCutOffAreRefusedUnlessAllTheirPixelsAreThere) {
    for (const char* name : {"Video.tif", "Video.bmp"}) {
        savePicture(folder / name, samplePicture(colour), points);
        const std::string whole = bytesOf(folder, name);
        constexpr std::size_t pixelBytes = 61 * 40 * 3;
        for (std::size_t length = 0; length < whole.size(); length += 211) {
            folder.write("cut", whole.substr(0, length));
            const std::string error = errorOfOpening("cut");
            const bool onlyNotesAreMissing = error.empty() && openPicture(folder / "cut").image == colour;
            EXPECT_TRUE(!error.empty() || onlyNotesAreMissing) << name << " to " << length;
            EXPECT_TRUE(!error.empty() || length > pixelBytes) << name << " to " << length;
        }
    }
}

TEST_F(OpenedPictures, OfGarbageAreRefusedAndLibtiffSaysNothingOnStandardError) {
    writeTiffFile(folder / "Video.tif", samplePicture(colour));
    const std::string whole = bytesOf(folder, "Video.tif");
    const std::size_t directory = whole.size() - 300; // libtiff puts its table of contents last
    testing::internal::CaptureStderr();
    for (std::size_t at = 2; at<whole.size(); at += at> directory || at < 64 ? 1 : 997) {
        std::string damaged = whole;
        damaged[at] = static_cast<char>(damaged[at] ^ 0xff);
        folder.write("damaged.tif", damaged);
        errorOfOpening("damaged.tif"); // whatever it says, no crash
    }
    folder.write("damaged.tif", "II*");
    EXPECT_THAT(errorOfOpening("damaged.tif"), HasSubstr("damaged.tif"));
    std::string backwards(104, '\xff'); // the other byte order, and nothing behind it
    backwards.replace(0, 2, "MM").replace(2, 1, 1, '\0').replace(3, 1, 1, '*');
    folder.write("damaged.tif", backwards);
    EXPECT_THAT(errorOfOpening("damaged.tif"), HasSubstr("damaged.tif"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(OpenedPictures, WithFewerPixelsThanDeclaredAreRefusedBeforeMemoryIsAllocated) {
    writeForeign("huge.tif", [](TIFF* file) {
        TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, 8);
        TIFFSetField(file, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
        TIFFSetField(file, TIFFTAG_IMAGEWIDTH, 30000);
        TIFFSetField(file, TIFFTAG_IMAGELENGTH, 30000);
        const char byte = 0;
        TIFFWriteRawStrip(file, 0, const_cast<char*>(&byte), 1);
    });
    EXPECT_THAT(errorOfOpening("huge.tif"), HasSubstr("30000 x 30000 pixels are too many"));
    writeForeign("short.tif", [](TIFF* file) {
        TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, 8);
        TIFFSetField(file, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
        TIFFSetField(file, TIFFTAG_IMAGEWIDTH, 9000);
        TIFFSetField(file, TIFFTAG_IMAGELENGTH, 9000);
        const char byte = 0;
        TIFFWriteRawStrip(file, 0, const_cast<char*>(&byte), 1);
    });
    EXPECT_THAT(errorOfOpening("short.tif"), HasSubstr("cut off"));
}

TEST_F(OpenedPictures, OfOtherProgramsMayHave16BitsAndComeAsColour) {
    writeForeign("sixteen.tif", [](TIFF* file) {
        TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, 16);
        TIFFSetField(file, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
        std::array<std::uint16_t, 4> row{0, 0x4000, 0x8000, 0xffff};
        TIFFWriteScanline(file, row.data(), 0);
        TIFFWriteScanline(file, row.data(), 1);
    });
    const Picture opened = openPicture(folder / "sixteen.tif");
    ASSERT_EQ(opened.image.size(), QSize(4, 2));
    EXPECT_EQ(opened.image.pixel(0, 1), qRgb(0, 0, 0));
    EXPECT_EQ(opened.image.pixel(3, 1), qRgb(255, 255, 255));
    EXPECT_NEAR(qRed(opened.image.pixel(2, 0)), 128, 1);
}

TEST_F(OpenedPictures, WithAPrintResolutionHaveNoScale) {
    writeForeign("print.tif", [](TIFF* file) {
        TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, 8);
        TIFFSetField(file, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
        TIFFSetField(file, TIFFTAG_RESOLUTIONUNIT, RESUNIT_CENTIMETER);
        TIFFSetField(file, TIFFTAG_XRESOLUTION, 118.0);
        TIFFSetField(file, TIFFTAG_YRESOLUTION, 118.0);
        TIFFSetField(file, TIFFTAG_IMAGEDESCRIPTION, "A holiday\nunit=um\n");
        std::array<std::uint8_t, 4> row{1, 2, 3, 4};
        TIFFWriteScanline(file, row.data(), 0);
        TIFFWriteScanline(file, row.data(), 1);
    });
    const Picture opened = openPicture(folder / "print.tif");
    EXPECT_FALSE(opened.scale.isKnown());
    EXPECT_THAT(opened.notes, IsEmpty());
    EXPECT_EQ(opened.image.format(), QImage::Format_Grayscale8);
}

TEST_F(OpenedPictures, KeepOnlyNotesThatAreKeyAndValue) {
    const ReadNotes read =
        readImageDescription("ImageJ=1.53t\nunit=um\nimages=1\n=x\nbad key=1\nstageX= 5 \n\n");
    EXPECT_TRUE(read.inMicrometres);
    EXPECT_EQ(read.notes, (std::vector<PictureNote>{{QStringLiteral("images"), QStringLiteral("1")},
                                                    {QStringLiteral("stageX"), QStringLiteral("5")}}));
}

TEST_F(OpenedPictures, SavedAgainKeepTheirScaleAndNotes) {
    savePicture(folder / "a.tif", samplePicture(grey), points);
    savePicture(folder / "b.tif", openPicture(folder / "a.tif"), points);
    EXPECT_EQ(bytesOf(folder, "a.tif"), bytesOf(folder, "b.tif"));
}

TEST_F(OpenedPictures, StoredOnTheirSideAreShownUpright) {
    writeForeign("side.tif", [](TIFF* file) {
        TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, 8);
        TIFFSetField(file, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
        TIFFSetField(file, TIFFTAG_ORIENTATION, ORIENTATION_RIGHTTOP);
        TIFFSetField(file, TIFFTAG_RESOLUTIONUNIT, RESUNIT_CENTIMETER);
        TIFFSetField(file, TIFFTAG_XRESOLUTION, 100.0);
        TIFFSetField(file, TIFFTAG_YRESOLUTION, 200.0);
        TIFFSetField(file, TIFFTAG_IMAGEDESCRIPTION, "ImageJ=1.53t\nunit=um\n");
        std::array<std::uint8_t, 4> row{1, 2, 3, 4};
        TIFFWriteScanline(file, row.data(), 0);
        row = {5, 6, 7, 8};
        TIFFWriteScanline(file, row.data(), 1);
    });
    const Picture opened = openPicture(folder / "side.tif");
    ASSERT_EQ(opened.image.size(), QSize(2, 4));
    EXPECT_EQ(opened.image.format(), QImage::Format_Grayscale8);
    EXPECT_EQ(qRed(opened.image.pixel(1, 0)), 1) << "the first stored row is the right-hand column";
    EXPECT_EQ(qRed(opened.image.pixel(0, 3)), 8);
    EXPECT_EQ(opened.scale.pixelsPerCmX, 200.0);
    EXPECT_EQ(opened.scale.pixelsPerCmY, 100.0);
}

TEST_F(OpenedPictures, WithPixelsThatAreNotGreyLevelsAreRefusedWithAdvice) {
    const struct {
        int format;
        int bits;
        const char* said;
    } rows[] = {{SAMPLEFORMAT_INT, 8, "signed numbers"},
                {SAMPLEFORMAT_INT, 16, "signed numbers"},
                {SAMPLEFORMAT_IEEEFP, 16, "floating-point numbers"},
                {SAMPLEFORMAT_UINT, 32, "32 bits per channel"}};
    for (const auto& row : rows) {
        writeForeign("odd.tif", [&row](TIFF* file) {
            TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, row.bits);
            TIFFSetField(file, TIFFTAG_SAMPLEFORMAT, row.format);
            TIFFSetField(file, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
            std::array<std::uint32_t, 4> line{};
            TIFFWriteScanline(file, line.data(), 0);
            TIFFWriteScanline(file, line.data(), 1);
        });
        EXPECT_THAT(errorOfOpening("odd.tif"),
                    AllOf(HasSubstr(row.said), HasSubstr("save it with 8 or 16 bits per channel first")));
    }
}

TEST_F(OpenedPictures, InSmallTilesWithoutCompressionAreRead) {
    writeForeign("tiles.tif", [](TIFF* file) {
        TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, 8);
        TIFFSetField(file, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
        TIFFSetField(file, TIFFTAG_TILEWIDTH, 16);
        TIFFSetField(file, TIFFTAG_TILELENGTH, 16);
        std::vector<std::uint8_t> tile(256, 77);
        TIFFWriteTile(file, tile.data(), 0, 0, 0, 0);
    });
    EXPECT_EQ(qRed(openPicture(folder / "tiles.tif").image.pixel(3, 1)), 77);
}

TEST_F(OpenedPictures, WithAnEndlessDescriptionReadOnlyItsBeginning) {
    writeForeign("long.tif", [](TIFF* file) {
        TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, 8);
        TIFFSetField(file, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
        std::string description = "ImageJ=1.53t\nstageX=5\n";
        for (int line = 0; line < 20000; ++line) {
            description += "no key\n";
        }
        TIFFSetField(file, TIFFTAG_IMAGEDESCRIPTION, (description + "stageY=6\n").c_str());
        std::array<std::uint8_t, 4> row{1, 2, 3, 4};
        TIFFWriteScanline(file, row.data(), 0);
        TIFFWriteScanline(file, row.data(), 1);
    });
    EXPECT_EQ(openPicture(folder / "long.tif").notes,
              (std::vector<PictureNote>{{QStringLiteral("stageX"), QStringLiteral("5")}}));
}

TEST_F(OpenedPictures, OfSeveralPagesOrMoreBitsLoseTheNotesAboutThemAndReportWhatASaveLoses) {
    constexpr const char* description =
        "ImageJ=1.53t\nimages=2\nslices=2\nhyperstack=true\nmin=0.0\nmax=4095.0\nstageX=5\n";
    writeForeign("stack.tif", [](TIFF* file) {
        for (int page = 0; page < 2; ++page) {
            TIFFSetField(file, TIFFTAG_IMAGEWIDTH, 4);
            TIFFSetField(file, TIFFTAG_IMAGELENGTH, 2);
            TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, 16);
            TIFFSetField(file, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
            TIFFSetField(file, TIFFTAG_IMAGEDESCRIPTION, description);
            std::array<std::uint16_t, 4> row{};
            TIFFWriteScanline(file, row.data(), 0);
            TIFFWriteScanline(file, row.data(), 1);
            TIFFWriteDirectory(file);
        }
    });
    const Picture stack = openPicture(folder / "stack.tif");
    EXPECT_EQ(stack.surplus, (FileSurplus{true, 16, 0}));
    EXPECT_EQ(saveWarnings(stack, folder / "stack.tif"),
              (QStringList{QStringLiteral("Only the first page of this picture is saved."),
                           QStringLiteral("Only 8 of its 16 bits per channel are saved.")}));
    savePicture(folder / "stack.tif", stack, points);
    const Picture saved = openPicture(folder / "stack.tif");
    EXPECT_EQ(saved.notes, (std::vector<PictureNote>{{QStringLiteral("stageX"), QStringLiteral("5")}}));
    EXPECT_EQ(saved.surplus, FileSurplus{});
    EXPECT_THAT(saveWarnings(saved, folder / "stack.tif"), IsEmpty());
}

TEST_F(OpenedPictures, OfEightBitsKeepTheirRangeOfGreyLevels) {
    const std::vector<PictureNote> notes{{QStringLiteral("images"), QStringLiteral("1")},
                                         {QStringLiteral("max"), QStringLiteral("200.0")}};
    EXPECT_EQ(notesOfOnePage(notes, 8), (std::vector<PictureNote>{notes[1]}));
    EXPECT_THAT(notesOfOnePage(notes, 16), IsEmpty());
    EXPECT_FALSE(tellOfFurtherPages(notes));
}

TEST_F(SavedPictures, ThatShareADescriptionWithAnotherPictureAreAnnounced) {
    const Picture picture = samplePicture(grey);
    EXPECT_THAT(saveWarnings(picture, folder / "Right.bmp"), IsEmpty());
    savePicture(folder / "Right.tif", picture, points);
    savePicture(folder / "Wrong.tif", picture, points);
    EXPECT_THAT(saveWarnings(picture, folder / "Right.tif"), IsEmpty());
    EXPECT_EQ(saveWarnings(picture, folder / "Right.bmp"),
              QStringList{QStringLiteral(
                  "\"Right.pic\" is also the description of Right.tif. This save replaces or removes it.")});
    std::filesystem::remove(folder / "Right.pic");
    EXPECT_EQ(saveWarnings(picture, folder / "Right.bmp"),
              QStringList{QStringLiteral(
                  "A \"Right.pic\" written now will also be taken for the description of Right.tif.")});
}

TEST_F(SavedPictures, AsBmpAboveThirtyThreeMegapixelsCanBeOpenedAgain) {
    QImage large(6000, 5700, QImage::Format_RGB888);
    large.fill(QColor(1, 2, 3));
    savePicture(folder / "Video.bmp", samplePicture(large), points);
    EXPECT_EQ(openPicture(folder / "Video.bmp").image, large);
}

TEST_F(OpenedPictures, OfOs2OrWithTheTopRowFirstAreReadFromBmp) {
    const std::string pixels("\1\2\3\4\5\6\0\0\7\x8\x9\xa\xb\xc\0\0", 16);
    folder.write("os2.bmp", std::string("BM\x2a\0\0\0\0\0\0\0\x1a\0\0\0"
                                        "\xc\0\0\0\2\0\2\0\1\0\x18\0",
                                        26) +
                                pixels);
    const QImage os2 = openPicture(folder / "os2.bmp").image;
    ASSERT_EQ(os2.size(), QSize(2, 2));
    EXPECT_EQ(os2.pixel(0, 1), qRgb(3, 2, 1));
    const std::string header("BM\x46\0\0\0\0\0\0\0\x36\0\0\0"
                             "\x28\0\0\0\2\0\0\0\xfe\xff\xff\xff\1\0\x18\0",
                             30);
    folder.write("top.bmp", header + std::string(24, '\0') + pixels);
    const QImage top = openPicture(folder / "top.bmp").image;
    ASSERT_EQ(top.size(), QSize(2, 2));
    EXPECT_EQ(top.pixel(0, 0), qRgb(3, 2, 1));
    folder.write("cut.bmp", header + std::string(24, '\0') + pixels.substr(1));
    EXPECT_THAT(errorOfOpening("cut.bmp"), HasSubstr("cut off"));
}
