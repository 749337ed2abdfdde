#include <QWidget>

#include "play/script.h"
#include "qt/fields.h"
