#include "virtual/VirtualHost.h"
