#include "playback/screen/cover_loader.h"
#include "tests/support/events.h"
#include "tests/support/temp_folder.h"

#include <QBuffer>

#include <gtest/gtest.h>

#include <future>
#include <new>

namespace vk::test {

struct CoverLoaderTest : testing::Test {
    TempFolder folder;
    std::vector<std::pair<CoverOutcome, QImage>> results;
    CoverLoader loader;

    static std::string Encoded(QSize size, QColor colour, const char* format = "png") {
        QImage image(size, QImage::Format_RGB32);
        image.fill(colour);
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, format);
        return buffer.data().toStdString();
    }
    void Load(CoverLoader& from, const CoverRequest& request) {
        from.Load(request, {100, 80},
                  [this](const auto&... result) { results.emplace_back(result...); });
    }
    void Load(const std::string& path) { Load(loader, {path, {}, {}}); }
    /// The picture of the result of that number, once it is in, and the error that goes with it.
    QImage Result(std::size_t number, const std::string& error = "") {
        EXPECT_TRUE(Eventually([&] { return results.size() >= number; }));
        EXPECT_EQ(results.size(), number);
        EXPECT_TRUE(results.back().first.error.starts_with(error)) << results.back().first.error;
        EXPECT_EQ(results.back().first.error.empty(), error.empty()) << number;
        return results.back().second;
    }
};

TEST_F(CoverLoaderTest, DecodesIntoTheBoxAndTellsFromTheEventLoop) {
    Load(folder.Write("a.jpg", Encoded({600, 300}, Qt::red))); // whatever its name
    EXPECT_TRUE(results.empty());
    const QImage red = Result(1);
    EXPECT_EQ(red.size(), QSize(100, 50));
    EXPECT_EQ(red.pixelColor(50, 25), QColor(Qt::red));
    Load(loader, {{}, folder.File("none.mp3"), folder.File("t.tmp")});
    EXPECT_EQ(Result(2).size(), QSize(100, 50)) << "the folder's picture";
}

TEST_F(CoverLoaderTest, OnlyTheNewestRequestIsAnswered) {
    const std::string red = folder.Write("red.png", Encoded({900, 900}, Qt::red));
    const std::string blue = folder.Write("blue.png", Encoded({90, 90}, Qt::blue));
    for (int i = 0; i < 5; ++i)
        Load(red);
    Load(blue);
    EXPECT_EQ(Result(1).pixelColor(9, 9), QColor(Qt::blue));
    Load(red);
    loader.Cancel();
    Load(blue);
    EXPECT_EQ(Result(2).pixelColor(9, 9), QColor(Qt::blue)) << "nothing of what was cancelled";
}

TEST_F(CoverLoaderTest, RefusesWhatIsBrokenHostileOrHuge) {
    const std::string jpeg = Encoded({300, 300}, Qt::green, "jpg");
    const std::string png = Encoded({300, 300}, Qt::green);
    std::string wide = png; // says of itself that it is 20,000 by 20,000
    wide.replace(16, 8, std::string("\0\0\x4E\x20\0\0\x4E\x20", 8));
    std::string scans = jpeg;
    for (int i = 0; i < 100; ++i)
        scans += "\xFF\xDA";
    std::size_t count = 0;
    for (const std::string& bytes :
         {std::string(), std::string("junk"), png.substr(0, 60), wide, scans,
          jpeg + std::string(33 << 20, 'x'),       // what follows is ignored
          Encoded({60000, 300}, Qt::green, "jpg"), // nothing to scale away
          std::string("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"),
          std::string("/* XPM */ static char *x[] = {\"1 1 1 1\", \"a c red\", \"a\"};")}) {
        Load(folder.Write("bad.jpg", bytes));
        EXPECT_TRUE(Result(++count, "Not a picture").isNull()) << count;
    }
    Load(folder.Write("good.jpg", jpeg));
    EXPECT_EQ(Result(++count).size(), QSize(80, 80));
}

TEST_F(CoverLoaderTest, SurvivesADecoderThatFailsAndLeavesOneThatHangs) {
    std::promise<void> reached, release;
    const std::string picture = folder.Write("a.jpg", "x");
    {
        CoverLoader hanging({[&, go = release.get_future().share()](const std::string&, QSize) {
                                 reached.set_value();
                                 go.wait();
                                 return QImage();
                             },
                             1});
        hanging.Load({picture, {}, {}}, {9, 9}, [](const auto&, const auto&) { FAIL(); });
        reached.get_future().wait();
    }
    release.set_value();
    CoverLoader failing({[](const std::string&, QSize) -> QImage { throw std::bad_alloc(); }});
    Load(failing, {picture, {}, {}});
    Result(1, std::bad_alloc().what());
}

} // namespace vk::test
