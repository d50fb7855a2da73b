#pragma once

#include <QtCore/QList>
#include <QtCore/QStringList>

#include <param/KpExport.h>

/// A report of errors, warnings and informations, in order of arrival. Validating operations fill it where the failure
/// is the user's to mend. Value semantics; copies share their records until one of them changes.
class KESTRIN_PARAM_EXPORT KpbStatus
{
public:
    struct State
    {
        enum EState
        {
            Error = 0,
            Warning = 1,
            Info = 2,
        };

        EState state = Error;
        QString message;
    };

    /// An empty text adds nothing.
    void addError(const QString& message) { _addState(State::Error, message); }
    void addWarning(const QString& message) { _addState(State::Warning, message); }
    void addInfo(const QString& message) { _addState(State::Info, message); }
    /// Appends all records of `other`, those without a text included.
    void addStates(const KpbStatus& other) { _states.append(other._states); }

    bool hasError() const { return _hasState(State::Error); }
    bool hasWarning() const { return _hasState(State::Warning); }
    bool hasInfo() const { return _hasState(State::Info); }
    bool isEmpty() const { return _states.isEmpty(); }
    int count() const { return _states.count(); }

    /// `index` must be in range.
    const State& at(int index) const { return _states.at(index); }
    State& operator[](int index) { return _states[index]; }

    QStringList getErrors() const { return _getList(State::Error); }
    QStringList getWarnings() const { return _getList(State::Warning); }
    QStringList getInfos() const { return _getList(State::Info); }

    void clear() { _states.clear(); }

private:
    void _addState(State::EState state, const QString& message);
    QStringList _getList(State::EState state) const;
    bool _hasState(State::EState state) const;

    QList<State> _states;
};
