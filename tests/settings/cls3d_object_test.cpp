// The cube: how it turns, and what is filled.
#include "settings/cls3d_object.h"

#include <gtest/gtest.h>

#include <map>
#include <numbers>
#include <set>

namespace vk::test {
namespace {

constexpr double Quarter = std::numbers::pi / 2;

TEST(Cls3dObject, TheCubeIsMadeOfItsVerticesAndTriangles) {
    cls3dObject cube;
    ASSERT_TRUE(cube.LoadObject("Cube", 2));
    EXPECT_EQ(cube.Vertices().size(), 8u);
    EXPECT_EQ(cube.Vertices()[3], (Vector3{-2, 2, -2}));
    ASSERT_EQ(cube.Triangles().size(), 12u);
    std::map<std::uint32_t, int> colours;
    std::map<std::size_t, int> corners;
    for (const auto& triangle : cube.Triangles()) {
        ++colours[triangle.colour];
        for (const std::size_t corner : triangle.corners)
            ++corners[corner];
    }
    EXPECT_EQ(colours, (std::map<std::uint32_t, int>{{65407, 4}, {16711680, 4}, {858083, 4}}));
    EXPECT_EQ(corners.size(), 8u);
    EXPECT_FALSE(cube.LoadObject("Sphere", 1));
    PagePicture none(8, 8);
    cube.RenderObject(none);
    EXPECT_EQ(none.At(4, 4), 0u);
}

TEST(Cls3dObject, TurnsAboutXThenYThenZAndMoves) {
    struct Case {
        Vector3 turns, moves, placed; // of the vertex 1, 1, -1
    };
    for (const Case& c : {Case{{0, 0, 0}, {0, 0, 0}, {1, 1, -1}},
                          {{1, 0, 0}, {0, 0, 0}, {1, 1, 1}},
                          {{0, 1, 0}, {0, 0, 0}, {-1, 1, -1}},
                          {{0, 0, 1}, {0, 0, 0}, {-1, 1, -1}},
                          {{1, 1, 0}, {0, 0, 0}, {1, 1, -1}},
                          {{1, 1, 1}, {0, 0, 0}, {-1, 1, -1}},
                          {{2, 0, 0}, {5, 6, 7}, {6, 5, 8}},
                          {{4, 4, 4}, {0, 0, 3}, {1, 1, 2}}}) {
        cls3dObject cube;
        cube.LoadObject("Cube", 1);
        cube.RotateX(c.turns[0] * Quarter / 2); // in two steps, as turns add up
        cube.SetRotations(c.turns[0] * Quarter / 2, 0, 0);
        cube.RotateX(c.turns[0] * Quarter / 2);
        cube.RotateY(c.turns[1] * Quarter);
        cube.RotateZ(c.turns[2] * Quarter);
        cube.SetTranslations(c.moves[0], 0, 0);
        cube.TranslateX(0);
        cube.TranslateY(c.moves[1]);
        cube.TranslateZ(c.moves[2]);
        const Vector3 placed = cube.Placed(0);
        for (std::size_t axis = 0; axis < 3; ++axis)
            EXPECT_NEAR(placed[axis], c.placed[axis], 1e-9)
                << c.turns[0] << c.turns[1] << c.turns[2];
    }
}

TEST(Cls3dObject, FillsTheNearSideAndNothingElse) {
    struct Case {
        double x, y;
        std::uint32_t colour; // 0xAARRGGBB
    };
    for (const Case& c : {Case{0, 0, 0xFF7FFF00}, {0, 1, 0xFF0000FF}, {1, 0, 0xFFE3170D}}) {
        cls3dObject cube;
        cube.LoadObject("Cube", 1.0);
        cube.SetTranslations(0, 0, 5);
        cube.SetRotations(c.x * Quarter, c.y * Quarter, 0);
        PagePicture picture(100, 80);
        cube.RenderObject(picture);
        // The near side at a distance of 4 is 2/4 of the 80 wide.
        std::set<std::uint32_t> colours;
        for (int y = 21; y < 59; ++y)
            for (int x = 31; x < 69; ++x)
                colours.insert(picture.At(x, y));
        EXPECT_EQ(colours, std::set{c.colour});
        for (const auto& [x, y] : {std::pair(28, 40), {72, 40}, {50, 18}, {50, 62}, {0, 0}})
            EXPECT_EQ(picture.At(x, y), 0u) << x << ", " << y;
        cube.SetTranslations(0, 0, 0); // around the eye
        cube.RenderObject(picture);
        cube.SetTranslations(1e9, 0, 1);
        cube.RenderObject(picture);
    }
}

} // namespace
} // namespace vk::test
