// Where the Linux edition keeps its settings: the user's configuration
// folder, as the XDG base-directory rules name it.
#include <cstdlib>

#include "assets/file_paths.h"
#include "settings/settings.h"

std::wstring RoamingAppDataBase() {
    return WidePath(ConfigurationBase(std::getenv("XDG_CONFIG_HOME"), std::getenv("HOME")));
}
