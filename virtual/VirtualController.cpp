#include "virtual/VirtualController.h"
