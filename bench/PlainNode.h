#pragma once

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QVector>

/// A parameter tree as one would write it with nothing but QObject: one object per parameter, with properties, and one
/// signal that is relayed from parent to parent.
class PlainNode : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString key READ getKey CONSTANT)
    Q_PROPERTY(QString label READ getLabel WRITE setLabel NOTIFY changed)
    Q_PROPERTY(bool enabled READ getEnabledFlag WRITE setEnabled NOTIFY changed)

public:
    const QString& getKey() const { return _key; }
    const QString& getLabel() const { return _label; }
    bool getEnabledFlag() const { return _enabled; }
    void setLabel(const QString& label);
    virtual void setEnabled(bool enabled);

    /// The caller owns the copy.
    virtual PlainNode* duplicate() const = 0;

Q_SIGNALS:
    /// This node, or `origin` below it, is not what it was.
    void changed(PlainNode* origin);

protected:
    explicit PlainNode(const QString& key) : _key(key) {}
    PlainNode(const PlainNode& other) : QObject(), _key(other._key), _label(other._label), _enabled(other._enabled) {}

private:
    QString _key;
    QString _label;
    bool _enabled = true;
};

class PlainLeaf : public PlainNode
{
    Q_OBJECT
    Q_PROPERTY(double value READ getValue WRITE setValue)
    Q_PROPERTY(double minimum READ getMinimum)
    Q_PROPERTY(double maximum READ getMaximum)

public:
    explicit PlainLeaf(const QString& key) : PlainNode(key) {}
    PlainLeaf* duplicate() const override { return new PlainLeaf(*this); }

    double getValue() const { return _value; }
    double getMinimum() const { return _minimum; }
    double getMaximum() const { return _maximum; }
    /// Stores the nearest value within the bounds.
    void setValue(double value);
    void setRange(double minimum, double maximum);

private:
    PlainLeaf(const PlainLeaf& other) = default;

    double _value = 0.0;
    double _minimum = 0.0;
    double _maximum = 0.0;
};

/// Owns its children and finds them by key.
class PlainGroup : public PlainNode
{
    Q_OBJECT

public:
    explicit PlainGroup(const QString& key) : PlainNode(key) {}
    PlainGroup* duplicate() const override { return new PlainGroup(*this); }

    const QVector<PlainNode*>& getNodes() const { return _nodes; }
    PlainNode* getNode(const QString& key) const { return _index.value(key); }
    void add(PlainNode* node);
    /// Destroys the child.
    void remove(const QString& key);
    void setEnabled(bool enabled) override;

private:
    PlainGroup(const PlainGroup& other);
    void _plug(PlainNode* node);

    QVector<PlainNode*> _nodes;
    QHash<QString, PlainNode*> _index;
};
