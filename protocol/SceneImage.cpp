#include "protocol/SceneImage.h"
