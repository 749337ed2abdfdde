#include <QWidget>

#include "qt/fields.h"
#include "play/script.h"
