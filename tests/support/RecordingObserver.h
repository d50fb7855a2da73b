#pragma once

#include <param/KpbAParameter.h>

#include <QtCore/QList>
#include <QtCore/QVector>

/// Keeps the records that reach it. It and what it observes may end in any order.
class RecordingObserver : public KuoIObserver<KpnModif>
{
public:
    RecordingObserver() = default;
    explicit RecordingObserver(const KpbAParameter& parameter) : _observed(const_cast<KpbAParameter*>(&parameter))
    {
        parameter.addObserver(this);
    }
    ~RecordingObserver() override
    {
        if (_observed)
            _observed->removeObserver(this);
    }
    RecordingObserver(const RecordingObserver&) = delete;
    RecordingObserver& operator=(const RecordingObserver&) = delete;

    void update(const KpnModif& modif) override { records.append(modif); }
    void destroyed(const KuoAObservable<KpnModif>*) override { ++deaths; }

    /// The flags of the only entry of record `i`, -1 if it has not exactly one.
    int flags(int i = 0) const
    {
        const auto& modifs = records.at(i).getModifs();
        return modifs.size() == 1 ? int(modifs.first()) : -1;
    }
    /// The flags of each record that has one entry, in order of arrival.
    QList<int> allFlags() const
    {
        QList<int> all;
        for (int i = 0; i < records.size(); ++i)
            all.append(flags(i));
        return all;
    }
    /// The flags that the entry for `parameter` as origin has in record `i`, 0 if there is none.
    int flagsOf(const KpbAParameter& parameter, int i = 0) const
    {
        int found = 0;
        records.at(i).forEach([&](const KpnPath& path, Kp::NotificationFlags flags) {
            if (path.getFirst() == &parameter)
                found |= int(flags);
        });
        return found;
    }

    QVector<KpnModif> records;
    int deaths = 0;

private:
    KuoPointer<KpbAParameter> _observed;
};
