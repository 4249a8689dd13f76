#include "platform/DiagnosticSinks.h"
