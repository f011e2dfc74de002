#include "bench/report/svg.h"

#include <array>

#include "bench/report/number_text.h"

namespace bench {
namespace {

std::string escaped(const std::string& text) {
    std::string result;
    for (const char character : text) {
        switch (character) {
            case '&':
                result += "&amp;";
                break;
            case '<':
                result += "&lt;";
                break;
            case '"':
                result += "&quot;";
                break;
            default:
                result += character;
        }
    }
    return result;
}

std::string attribute(const char* name, double value) {
    return std::string(" ") + name + "=\"" + numberText(value, 1) + "\"";
}

std::string attribute(const char* name, const std::string& value) {
    return std::string(" ") + name + "=\"" + escaped(value) + "\"";
}

}  // namespace

Svg::Svg(double width, double height) : width_(width), height_(height) {}

void Svg::rectangle(double x, double y, double width, double height, const std::string& colour) {
    body_ << "<rect" << attribute("x", x) << attribute("y", y) << attribute("width", width)
          << attribute("height", height) << attribute("fill", colour) << "/>\n";
}

void Svg::line(double x1, double y1, double x2, double y2, const std::string& colour,
               double thickness, bool dashed) {
    body_ << "<line" << attribute("x1", x1) << attribute("y1", y1) << attribute("x2", x2)
          << attribute("y2", y2) << attribute("stroke", colour)
          << attribute("stroke-width", thickness)
          << (dashed ? attribute("stroke-dasharray", "5 4") : "") << "/>\n";
}

void Svg::dot(double x, double y, double radius, const std::string& colour) {
    body_ << "<circle" << attribute("cx", x) << attribute("cy", y) << attribute("r", radius)
          << attribute("fill", colour) << "/>\n";
}

void Svg::text(double x, double y, const std::string& words, Anchor anchor, const Font& font) {
    constexpr std::array kAnchors{"start", "middle", "end"};
    body_ << "<text" << attribute("x", x) << attribute("y", y)
          << attribute("text-anchor", kAnchors[static_cast<std::size_t>(anchor)])
          << attribute("font-size", font.size)
          << (font.bold ? attribute("font-weight", "bold") : "") << attribute("fill", font.colour)
          << ">" << escaped(words) << "</text>\n";
}

std::string Svg::finish() const {
    std::ostringstream file;
    file << "<svg xmlns=\"http://www.w3.org/2000/svg\"" << attribute("width", width_)
         << attribute("height", height_) << " viewBox=\"0 0 " << numberText(width_, 0) << " "
         << numberText(height_, 0) << "\""
         << attribute("font-family", "DejaVu Sans, Verdana, sans-serif") << ">\n<rect"
         << attribute("width", width_) << attribute("height", height_)
         << " rx=\"8\" fill=\"#ffffff\"/>\n"
         << body_.str() << "</svg>\n";
    return file.str();
}

}  // namespace bench
