#include "shell/session.h"

SessionRecord Session;
