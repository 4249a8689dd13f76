#include "protocol/Handshake.h"
