#include "tests/support/process/daemon_settings.h"

#include <sstream>

#include "tests/support/process/private_view.h"

namespace support {
namespace {

std::string escapeAttribute(const std::string& value) {
    std::string text;
    for (const char character : value) {
        switch (character) {
            case '&':
                text += "&amp;";
                break;
            case '<':
                text += "&lt;";
                break;
            case '"':
                text += "&quot;";
                break;
            default:
                text += character;
        }
    }
    return text;
}

std::string interfaceXml(const char* name, const InterfaceSettings& settings) {
    std::ostringstream xml;
    xml << "    <Interface Name=\"" << name << "\" InpSeparator=\""
        << escapeAttribute(settings.inSeparator) << "\" OutSeparator=\""
        << escapeAttribute(settings.outSeparator) << "\" Port=\"" << settings.port << "\"/>\n";
    return xml.str();
}

const char* trueOrFalse(bool value) {
    return value ? "TRUE" : "FALSE";
}

}  // namespace

std::string DaemonSettings::defaultLogFile() {
    return workFolder() / "zolt.log";
}

std::string DaemonSettings::toXml() const {
    std::ostringstream xml;
    xml << "<?xml version=\"1.0\"?>\n<ZOLTConfig>\n"
        << "  <Debuglog File=\"" << escapeAttribute(logFile) << "\" Loglevel=\"" << logLevel
        << "\"/>\n";
    if (percent) xml << "  <Speed Percent=\"" << *percent << "\"/>\n";
    xml << "  <InitPollState Action=\"" << trueOrFalse(polling) << "\"/>\n"
        << "  <AutoDiscover Action=\"" << trueOrFalse(discover) << "\"/>\n"
        << "  <Interfaces>\n"
        << interfaceXml("IO", io) << interfaceXml("CAE", cae) << interfaceXml("MON", mon)
        << "  </Interfaces>\n</ZOLTConfig>\n";
    return xml.str();
}

}  // namespace support
