// Qt finds the folder on every system, but its texts cannot hold a name that is not UTF-8: they get
// replacement characters, which name another folder. Only on Unix are there such names, and there
// the folder is taken from the environment as Qt takes it.
#include "settings/config_folder.h"

#include <QStandardPaths>
#include <cstdlib>

namespace kalvex {
namespace {

std::string FromEnvironment(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr && *value == '/' ? value : std::string();
}

}  // namespace

std::string ConfigFolder() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    if (!folder.contains(QChar::ReplacementCharacter)) return folder.toStdString();
    const std::string named = FromEnvironment("XDG_CONFIG_HOME");
    return named.empty() ? FromEnvironment("HOME") + "/.config" : named;
}

}  // namespace kalvex
