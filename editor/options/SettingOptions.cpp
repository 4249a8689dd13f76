#include "editor/options/SettingOptions.h"
