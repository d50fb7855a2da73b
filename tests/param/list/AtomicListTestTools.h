#pragma once

#include "../composite/ListTestTools.h"

/// Both flags of the automatic mode, as "automatic, initialized".
inline QString automaticState(const KpbAParameter& parameter)
{
    return QStringLiteral("%1, %2").arg(parameter.isAutomatic() ? "automatic" : "manual",
                                        parameter.isAutomaticValueInitialized() ? "initialized" : "not initialized");
}

/// What every list of atomics does with two values.
template <class List, class Value>
void expectAListOfValues(const KpbEType& itemType, const Value& a, const Value& b)
{
    List list("LIST");
    EXPECT_TRUE(list.isA(KpbEType::LIST));
    EXPECT_TRUE(list.getItemType() == itemType);
    list.setValues({a, b});
    EXPECT_EQ(list.getValues(), QList<Value>({a, b}));
    EXPECT_TRUE(list.getValueAt(-1) == Value());
    EXPECT_TRUE(list.getValueAt(2) == Value());

    const std::unique_ptr<List> copy(list.duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getValues(), QList<Value>({a, b}));
    EXPECT_EQ(List(list, QString()).getKey(), "LIST");

    list.setAutoValues({b, a});
    list.setAutomatic(true);
    EXPECT_EQ(list.getValues(), QList<Value>({b, a}));
    EXPECT_TRUE(list.isAutomatic());
    list.setAutoValueAt(0, a);
    EXPECT_TRUE(list.getAutoValueAt(0) == a);
    EXPECT_TRUE(list.getValueAt(0) == a);

    list.setValues({a, b, a, a, b});
    list.setUnique(true);
    EXPECT_EQ(list.getValues(), QList<Value>({a, b}));
    EXPECT_EQ(list.getItemKeys(), itemKeys({1, 2}));
}
