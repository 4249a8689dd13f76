#include "model/CommonAction.h"
