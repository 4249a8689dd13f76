#include "model/FileAction.h"
