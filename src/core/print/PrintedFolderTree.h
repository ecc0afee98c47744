#pragma once

#include "PrintableTree.h"

#include "images/FolderTree.h"

// A drive image's folder tree as the tree printer walks it.
class PrintedFolderTree : public PrintableTree
{
public:
    explicit PrintedFolderTree(const FolderTree &tree, int selected = -1)
        : m_tree(tree)
        , m_selected(selected)
    {
    }

    int firstNode() const override { return m_tree.firstNode(); }
    int selectedNode() const override { return m_selected; }
    int child(int node) const override { return m_tree.firstChild(node); }
    int nextSibling(int node) const override { return m_tree.nextSibling(node); }
    QString text(int node) const override { return m_tree.node(node).text; }

private:
    const FolderTree &m_tree;
    int m_selected;
};
