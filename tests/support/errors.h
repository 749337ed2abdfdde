// The run-time error that some steps end in.
#pragma once

#include "basic/error.h"

// ErrorNumber{}, which is none, when they end without one.
template <typename Steps>
ErrorNumber ErrorOf(Steps steps)
{
    try {
        steps();
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return ErrorNumber{};
}
