#include <string>

#include "shell/session.h"
