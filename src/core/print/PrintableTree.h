#pragma once

#include <QString>

// The little the tree printer needs of a tree view. Nodes are numbers; -1 stands for none.
class PrintableTree
{
public:
    virtual ~PrintableTree() = default;
    virtual int firstNode() const = 0;
    virtual int selectedNode() const = 0;
    virtual int child(int node) const = 0; // the first child
    virtual int nextSibling(int node) const = 0;
    virtual QString text(int node) const = 0;
};
