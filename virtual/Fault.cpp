#include "virtual/Fault.h"
