#pragma once

#include <QString>

#include <string>
#include <vector>

class ImageIndex;

// The folders of a drive image as the tree view shows them: ZIP and RAR files are folders
// like the others; a root reads as the CD's title with its drive, "Meine CD (d:)", every other
// folder by its name; children in the order of the file. Each node keeps its key (the
// folder's path in the image) as the image spells it.
class FolderTree
{
public:
    struct Node
    {
        std::string key;
        QString text;
        int parent = -1;
        int row = 0; // among its siblings
        std::vector<int> children;
    };

    FolderTree() = default;
    FolderTree(const ImageIndex &image, const QString &title);

    const std::vector<Node> &nodes() const { return m_nodes; }
    const std::vector<int> &roots() const { return m_roots; }
    const Node &node(int number) const { return m_nodes[static_cast<size_t>(number)]; }

    // -1 where there is none.
    int firstNode() const { return m_roots.empty() ? -1 : m_roots.front(); }
    int firstChild(int number) const;
    int nextSibling(int number) const;

private:
    std::vector<Node> m_nodes;
    std::vector<int> m_roots;
};
