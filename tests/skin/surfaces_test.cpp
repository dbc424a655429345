#include "skin/surfaces.h"

#include <gmock/gmock.h>

namespace vk::test {

struct SurfacesTest : testing::Test {
    void Put(const std::string& owner, Layer layer) {
        const auto raise = [this, owner] {
            std::erase(order, owner);
            order.push_back(owner);
        };
        Surface surface{layer, raise};
        if (layer == Layer::Program) surface.show = [this](bool on) { shown = on; };
        surfaces.Put(owner, surface);
    }
    Surfaces surfaces;
    std::vector<std::string> order; ///< the front last
    bool shown = false;
};

TEST_F(SurfacesTest, LayersKeepTheirOrderWhoeverComesLast) {
    Put("tools", Layer::Bar);
    Put("film", Layer::Film);
    for (const char* program : {"map", "other", "map"})
        Put(program, Layer::Program);
    EXPECT_THAT(order, testing::ElementsAre("film", "other", "map", "tools"));
    EXPECT_EQ(surfaces.Owner(Layer::Program), "map");
    for (const char* gone : {"map", "nobody", "tools"})
        surfaces.Remove(gone);
    EXPECT_EQ(surfaces.Owner(Layer::Program), "other");
    EXPECT_EQ(surfaces.Owner(Layer::Bar), "");
}

TEST_F(SurfacesTest, ProgramsStepBackForDialogsAndReturnAfterTheLast) {
    Put("map", Layer::Program);
    EXPECT_TRUE(shown);
    surfaces.DialogOpened();
    surfaces.DialogOpened();
    surfaces.DialogClosed();
    EXPECT_FALSE(shown);
    surfaces.DialogClosed();
    EXPECT_TRUE(shown);
    surfaces.DialogClosed(); // one too many changes nothing
    surfaces.DialogOpened();
    Put("other", Layer::Program);
    EXPECT_FALSE(shown) << "what comes while a dialog is open waits";
    surfaces.Remove("map");
    surfaces.DialogClosed();
    EXPECT_TRUE(shown);
}

} // namespace vk::test
