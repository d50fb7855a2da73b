#include "PlainNode.h"

#include <algorithm>
#include <utility>

void PlainNode::setLabel(const QString& label)
{
    if (_label == label)
        return;
    _label = label;
    Q_EMIT changed(this);
}

void PlainNode::setEnabled(bool enabled)
{
    if (std::exchange(_enabled, enabled) != enabled)
        Q_EMIT changed(this);
}

void PlainLeaf::setValue(double value)
{
    const double fixed = std::max(_minimum, std::min(value, _maximum));
    if (std::exchange(_value, fixed) != fixed)
        Q_EMIT changed(this);
}

void PlainLeaf::setRange(double minimum, double maximum)
{
    const bool minimumChanged = std::exchange(_minimum, minimum) != minimum;
    const bool maximumChanged = std::exchange(_maximum, maximum) != maximum;
    if (minimumChanged || maximumChanged)
        Q_EMIT changed(this);
    setValue(_value);
}

PlainGroup::PlainGroup(const PlainGroup& other) : PlainNode(other)
{
    for (const PlainNode* node : other._nodes)
        _plug(node->duplicate());
}

void PlainGroup::_plug(PlainNode* node)
{
    node->setParent(this);
    _nodes.append(node);
    _index.insert(node->getKey(), node);
    connect(node, &PlainNode::changed, this, &PlainNode::changed);
}

void PlainGroup::add(PlainNode* node)
{
    _plug(node);
    Q_EMIT changed(this);
}

void PlainGroup::remove(const QString& key)
{
    PlainNode* node = _index.take(key);
    _nodes.removeOne(node);
    delete node;
    Q_EMIT changed(this);
}

void PlainGroup::setEnabled(bool enabled)
{
    if (enabled == getEnabledFlag())
        return;
    PlainNode::setEnabled(enabled);
    for (PlainNode* node : qAsConst(_nodes))
        node->setEnabled(enabled);
}
