// Texts as numbers: as a leading number, as a field of a record, as an entry of a form.
#include <cmath>

#include "basic/error.h"
#include "basic/number.h"
#include "basic/numbertext.h"
#include "basic/records.h"
#include "input.h"

namespace {

template <typename Steps>
void MayRaise(Steps steps)
{
    try {
        steps();
    } catch (const RuntimeError&) {
        return;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text = TextOf(data, size);
    MayRaise([&text] { Claim(!std::isnan(Val(text))); });
    MayRaise([&text] { ToInt16(Val(text)); });
    MayRaise([&text] { ToInt32(Val(text)); });
    MayRaise([&text] { RecordReader(text).ReadDouble(); });
    MayRaise([&text] { RecordReader(text).ReadVariant(); });
    MayRaise([&text] {
        RecordReader reader(text);
        while (true)
            reader.ReadString();
    });

    const NumberText number = ReadNumberText(text);
    if (number.IsNumber) Claim(number.Text.find(',') == std::string::npos);
    MayRaise([&number] { Claim(!number.IsNumber || std::isfinite(number.Value())); });
    return 0;
}
