#include "FolderTree.h"

#include "ImageIndex.h"

#include "common/Cp1252.h"

FolderTree::FolderTree(const ImageIndex &image, const QString &title)
{
    m_nodes.reserve(image.folders().size());
    for (const ImageIndex::Folder &folder : image.folders()) {
        Node node;
        node.key.assign(folder.key);
        node.parent = folder.parent;
        const int self = static_cast<int>(m_nodes.size());
        if (folder.parent < 0) {
            node.text = title + QStringLiteral(" (") + cp1252::toQString(folder.key) + QLatin1Char(')');
            node.row = static_cast<int>(m_roots.size());
            m_roots.push_back(self);
        } else {
            node.text = cp1252::toQString(folder.text);
            auto &siblings = m_nodes[static_cast<size_t>(folder.parent)].children;
            node.row = static_cast<int>(siblings.size());
            siblings.push_back(self);
        }
        m_nodes.push_back(std::move(node));
    }
}

int FolderTree::firstChild(int number) const
{
    const std::vector<int> &children = node(number).children;
    return children.empty() ? -1 : children.front();
}

int FolderTree::nextSibling(int number) const
{
    const Node &self = node(number);
    const std::vector<int> &siblings = self.parent < 0 ? m_roots : node(self.parent).children;
    const size_t next = static_cast<size_t>(self.row) + 1;
    return next < siblings.size() ? siblings[next] : -1;
}
