#include "settings/cls3d_object.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace vk {

namespace {

constexpr Vector3 CubeVertices[] = {{1, 1, -1}, {1, -1, -1}, {-1, -1, -1}, {-1, 1, -1},
                                    {1, 1, 1},  {1, -1, 1},  {-1, -1, 1},  {-1, 1, 1}};
constexpr std::uint32_t Green = 65407, Blue = 16711680, Red = 858083;
constexpr cls3dObject::Triangle CubeTriangles[] = {
    {{0, 1, 2}, Green}, {{2, 3, 0}, Green}, {{3, 2, 6}, Blue}, {{6, 7, 3}, Blue},
    {{7, 6, 5}, Green}, {{5, 4, 7}, Green}, {{4, 5, 1}, Blue}, {{1, 0, 4}, Blue},
    {{4, 0, 3}, Red},   {{3, 7, 4}, Red},   {{1, 5, 6}, Red},  {{6, 2, 1}, Red}};

constexpr double Nearest = 0.1;      // to the eye
constexpr double PictureShare = 1.0; // of the smaller side that 1 at a distance of 1 takes

// About one axis: the other two turn into each other.
Vector3 Rotated(Vector3 point, std::size_t axis, double angle) {
    const std::size_t a = (axis + 1) % 3, b = (axis + 2) % 3;
    const double c = std::cos(angle), s = std::sin(angle);
    const double from = point[a], to = point[b];
    point[a] = from * c - to * s;
    point[b] = from * s + to * c;
    return point;
}

std::uint32_t Swapped(std::uint32_t colour) { // 0xBBGGRR to 0xRRGGBB
    return (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF);
}

} // namespace

bool cls3dObject::LoadObject(std::string_view name, double size) {
    vertices_.clear();
    triangles_.clear();
    if (name != "Cube") return false;
    for (const Vector3& vertex : CubeVertices)
        vertices_.push_back({vertex[0] * size, vertex[1] * size, vertex[2] * size});
    triangles_.assign(std::begin(CubeTriangles), std::end(CubeTriangles));
    return true;
}

// Kept small: a page may stand open for days.
void cls3dObject::Turn(std::size_t axis, double angle) {
    rotation_[axis] = std::fmod(rotation_[axis] + angle, 2 * std::numbers::pi);
}

Vector3 cls3dObject::Placed(std::size_t vertex) const {
    Vector3 point = vertices_[vertex];
    for (std::size_t axis = 0; axis < 3; ++axis)
        point = Rotated(point, axis, rotation_[axis]);
    for (std::size_t axis = 0; axis < 3; ++axis)
        point[axis] += translation_[axis];
    return point;
}

void cls3dObject::RenderObject(PagePicture& picture) const {
    std::vector<Vector3> placed(vertices_.size());
    for (std::size_t i = 0; i < placed.size(); ++i)
        placed[i] = Placed(i);
    const auto depth = [&](const Triangle& triangle) {
        double sum = 0;
        for (const std::size_t corner : triangle.corners)
            sum += placed[corner][2];
        return sum;
    };
    std::vector<Triangle> order = triangles_;
    std::ranges::stable_sort(order, std::ranges::greater(), depth);
    const double scale = std::min(picture.width, picture.height) * PictureShare;
    for (const Triangle& triangle : order) {
        std::vector<PicturePoint> corners;
        for (const std::size_t corner : triangle.corners)
            if (const Vector3& point = placed[corner]; point[2] >= Nearest)
                corners.push_back({picture.width / 2.0 + scale * point[0] / point[2],
                                   picture.height / 2.0 - scale * point[1] / point[2]});
        if (corners.size() == 3) Polygon(picture, corners, Swapped(triangle.colour));
    }
}

} // namespace vk
