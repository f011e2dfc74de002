#include "apps/zolt-check/document/config_document.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <pugixml.hpp>
#include <string_view>

#include "apps/zolt-check/document/config_place.h"

namespace zolt_check {
namespace {

constexpr int kLevels = 4;

ConfigEncoding encodingOf(pugi::xml_encoding encoding) {
    switch (encoding) {
        case pugi::encoding_utf16_le:
            return ConfigEncoding::kUtf16Le;
        case pugi::encoding_utf16_be:
            return ConfigEncoding::kUtf16Be;
        case pugi::encoding_utf32_le:
            return ConfigEncoding::kUtf32Le;
        case pugi::encoding_utf32_be:
            return ConfigEncoding::kUtf32Be;
        case pugi::encoding_latin1:
            return ConfigEncoding::kLatin1;
        default:
            return ConfigEncoding::kUtf8;
    }
}

class TreeBuilder {
  public:
    TreeBuilder(const std::string& bytes, ConfigEncoding encoding)
        : bytes_(bytes), encoding_(encoding), places_(bytes, encoding) {}

    ConfigPlace placeAt(std::ptrdiff_t offset) {
        return places_.at(static_cast<std::size_t>(offset));
    }

    std::vector<ConfigElement> outermost(const pugi::xml_document& document) {
        std::vector<ConfigElement> elements;
        for (const pugi::xml_node& node : document.children()) {
            if (node.type() == pugi::node_element) {
                elements.push_back(elementOf(node, kLevels));
            }
        }
        return elements;
    }

  private:
    /// The element with its children; `levels` counts this element as the first.
    ConfigElement elementOf(const pugi::xml_node& node, int levels) {
        ConfigElement element{node.name(), placeAt(node.offset_debug()), {}, {}, {}};
        for (const pugi::xml_attribute& attribute : node.attributes()) {
            element.attributes.push_back(attributeOf(node, attribute));
        }
        if (levels == 1) {
            return element;
        }
        for (const pugi::xml_node& child : node.children()) {
            if (child.type() == pugi::node_element) {
                element.children.push_back(elementOf(child, levels - 1));
            } else if (!element.text && child.value()[0] != '\0') {
                // This child is text or CDATA; the parser skips comments and the like.
                element.text = places_.afterBlanks(static_cast<std::size_t>(child.offset_debug()));
            }
        }
        return element;
    }

    ConfigAttribute attributeOf(const pugi::xml_node& node, const pugi::xml_attribute& attribute) {
        // Both names are in the buffer from which the document was parsed.
        const std::ptrdiff_t offset = node.offset_debug() + (attribute.name() - node.name());
        return {attribute.name(), attribute.value(), placeAt(offset),
                hasControls(static_cast<std::size_t>(offset))};
    }

    /// Whether the raw value of the attribute at `nameOffset` contains line ends or tabs.
    bool hasControls(std::size_t nameOffset) const {
        if (encoding_ != ConfigEncoding::kUtf8) {
            return false;
        }
        const std::size_t open = bytes_.find_first_of("\"'", nameOffset);
        if (open == std::string::npos) {
            return false;
        }
        const std::size_t close = bytes_.find(bytes_[open], open + 1);
        const auto typed = std::string_view(bytes_).substr(open, close - open);
        return typed.find_first_of("\r\n\t") != std::string_view::npos;
    }

    const std::string& bytes_;
    ConfigEncoding encoding_;
    ConfigPlaces places_;
};

ConfigDocument unreadable(const std::string& reason) {
    return {"the file cannot be read: " + reason, {}, {}};
}

}  // namespace

ConfigDocument loadConfigDocument(const std::string& path) {
    struct stat about {};
    if (stat(path.c_str(), &about) != 0) {
        return unreadable(std::strerror(errno));
    }
    if (!S_ISREG(about.st_mode)) {
        return unreadable(S_ISDIR(about.st_mode) ? "Is a directory" : "Not a regular file");
    }
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rbe"),
                                                               std::fclose);
    if (file == nullptr) {
        return unreadable(std::strerror(errno));
    }
    std::string bytes(static_cast<std::size_t>(about.st_size), '\0');
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
    if (std::ferror(file.get()) != 0) {
        return unreadable(std::strerror(errno));
    }

    pugi::xml_document document;
    const pugi::xml_parse_result result = document.load_buffer(bytes.data(), bytes.size());
    TreeBuilder builder(bytes, encodingOf(result.encoding));
    if (!result) {
        return {std::string("the file is not well-formed: ") + result.description(),
                builder.placeAt(result.offset),
                {}};
    }
    return {{}, {}, builder.outermost(document)};
}

}  // namespace zolt_check
