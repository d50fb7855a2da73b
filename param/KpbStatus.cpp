#include <param/KpbStatus.h>

#include <algorithm>

void KpbStatus::_addState(State::EState state, const QString& message)
{
    if (!message.isEmpty())
        _states.append(State{state, message});
}

QStringList KpbStatus::_getList(State::EState state) const
{
    QStringList messages;
    for (const State& record : _states) {
        if (record.state == state)
            messages.append(record.message);
    }
    return messages;
}

bool KpbStatus::_hasState(State::EState state) const
{
    return std::any_of(_states.cbegin(), _states.cend(), [&](const State& record) { return record.state == state; });
}
