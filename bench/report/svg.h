#pragma once

#include <sstream>
#include <string>

namespace bench {

/// A picture that grows element by element; lengths are in points, from the top
/// left. On a white ground, so that it can be read on a dark page, too.
class Svg {
  public:
    /// What a column of a page shows without scaling.
    static constexpr double kUsualWidth = 920;

    Svg(double width, double height);

    enum class Anchor { kStart, kMiddle, kEnd };
    struct Font {
        int size = 12;
        bool bold = false;
        std::string colour = "#2b3440";
    };

    void rectangle(double x, double y, double width, double height, const std::string& colour);
    void line(double x1, double y1, double x2, double y2, const std::string& colour,
              double thickness, bool dashed = false);
    void dot(double x, double y, double radius, const std::string& colour);
    void text(double x, double y, const std::string& words, Anchor anchor, const Font& font);

    /// The whole file.
    std::string finish() const;

  private:
    double width_;
    double height_;
    std::ostringstream body_;
};

}  // namespace bench
