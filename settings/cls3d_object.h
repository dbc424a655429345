// A small solid object that turns.
#pragma once

#include "settings/pages/picture.h"

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace vk {

/// Three numbers by the axes x (to the right), y (up) and z (away).
using Vector3 = std::array<double, 3>;

class cls3dObject {
  public:
    struct Triangle {
        std::array<std::size_t, 3> corners; ///< numbers of vertices, from 0
        std::uint32_t colour;               ///< 0xBBGGRR
    };

    /// The object of that name, `size` times as large; there is "Cube". False, and nothing to
    /// render, for another name.
    bool LoadObject(std::string_view name, double size);
    /// Angles in radians, about the axes through the object's middle.
    void SetRotations(double x, double y, double z) { rotation_ = {x, y, z}; }
    /// Where its middle lies; the eye is at 0, and its picture at 1 before it.
    void SetTranslations(double x, double y, double z) { translation_ = {x, y, z}; }
    /// Turn and move on by that much.
    void RotateX(double angle) { Turn(0, angle); }
    void RotateY(double angle) { Turn(1, angle); }
    void RotateZ(double angle) { Turn(2, angle); }
    void TranslateX(double way) { translation_[0] += way; }
    void TranslateY(double way) { translation_[1] += way; }
    void TranslateZ(double way) { translation_[2] += way; }

    const std::vector<Vector3>& Vertices() const { return vertices_; }
    const std::vector<Triangle>& Triangles() const { return triangles_; }
    const Vector3& Rotations() const { return rotation_; }
    /// A vertex, turned about x, then y, then z, and moved.
    Vector3 Placed(std::size_t vertex) const;
    /// Fills the triangles in their colours, the farthest first, on what there is. One that reaches
    /// behind the eye is left out.
    void RenderObject(PagePicture& picture) const;

  private:
    void Turn(std::size_t axis, double angle);

    std::vector<Vector3> vertices_;
    std::vector<Triangle> triangles_;
    Vector3 rotation_{}, translation_{};
};

} // namespace vk
