#include "faults/Injector.h"

#include <utility>

namespace faults {
namespace {

Plan current;
long events = 0;
bool isArmed = false;

} // namespace

void Expect(const Plan& plan) {
    current = plan;
    events = 0;
}

long Events() { return events; }

bool IsDue(Failure failure) {
    if (!isArmed || failure != current.failure)
        return false;
    ++events;
    if (current.first == 0)
        return false;
    return current.lasting ? events >= current.first : events == current.first;
}

bool Strikes(Failure failure) { return current.failure == failure; }

bool IsLasting() { return current.lasting; }

Armed::Armed() { isArmed = true; }

Armed::~Armed() { isArmed = false; }

Unarmed::Unarmed() : m_wasArmed(std::exchange(isArmed, false)) {}

Unarmed::~Unarmed() { isArmed = m_wasArmed; }

} // namespace faults
