#include <param/KpbAParameter.h>
#include <param/KpnLife.h>

std::atomic<std::uint64_t> KpnLife::_deaths{0};

void KpnLife::guardedDestroyed()
{
    _target = nullptr;
    _diedAs = _deaths.fetch_add(1, std::memory_order_relaxed) + 1;
}

void KpnLife::_end()
{
    if (_target)
        _target->removeGuard(this);
    delete this;
}
