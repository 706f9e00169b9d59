// Copy, cut and paste as a stream of choices, over the desks and the rules of the clipboard's own random tests.
//
// Input: its first byte chooses the desk (arrangements and styles, or programs), a seed of two bytes lays it; each
// further byte is a throw of the user's dice: which window, which rows, what is done.
#include "Fuzz.h"

#include "clipboard/ArrModel.h"
#include "clipboard/PrgModel.h"

using namespace Fuzz;

namespace
{

constexpr int MostSteps = 12;

/// A desk outside a test: laid by a seed, worked at by the input.
template <typename Model>
class FuzzedDesk final : public Model
{
public:
    void work(unsigned seed, std::string_view steps)
    {
        Clipboard = {};
        this->dice = std::make_unique<Dice>(seed);
        this->layDesk();
        this->dice = std::make_unique<Dice>(steps);
        for (int step = 0; step < MostSteps && !this->dice->used() && !testing::Test::HasFailure(); ++step) {
            this->take();
            this->put();
        }
        must(!testing::Test::HasFailure(), "the rules of the clipboard's model");
    }

private:
    void TestBody() override {}
};

/// Only one desk stands at a time, since both lay out the program's shared state.
template <typename Model, typename Other>
FuzzedDesk<Model>& theDesk(std::unique_ptr<FuzzedDesk<Model>>& desk, std::unique_ptr<FuzzedDesk<Other>>& other)
{
    other.reset();
    if (!desk)
        desk = std::make_unique<FuzzedDesk<Model>>();
    return *desk;
}

} // namespace

void fuzzOne(std::string_view input)
{
    static std::unique_ptr<FuzzedDesk<ArrModel>> arrangements;
    static std::unique_ptr<FuzzedDesk<PrgModel>> programs;
    Choices choices(input);
    const int how = choices.byte();
    const auto seed = static_cast<unsigned>(choices.word());
    if (how % 3 == 0)
        theDesk(programs, arrangements).work(seed, choices.rest());
    else
        theDesk(arrangements, programs).work(seed, choices.rest());
}
