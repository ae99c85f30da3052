#pragma once

#include <QStringList>
#include <QWidget>

class QStackedWidget;
class QTabBar;

namespace vantrosk {

/// Pages behind tabs, each found by its key. The keys go through the bar with the arrow keys.
class Details_Tabs : public QWidget {
    Q_OBJECT

public:
    /// `name` is the object name of the strip that the tabs stand in; `caption` says what they are.
    Details_Tabs(const QString &name, const QString &caption, QWidget *parent);

    /// Behind the page of that key; at the end for an unknown or empty one. A page that is there stays.
    void Add(const QString &key, const QString &caption, QWidget *page, const QString &behind = {});
    /// Takes the page out, without deleting it; the first page is shown if that one was.
    void Remove(const QString &key);
    bool has(const QString &key) const { return keys_.contains(key); }
    void Show(const QString &key);
    bool is_offered(const QString &key) const; ///< its tab is there and not hidden
    QString shown() const;
    const QStringList &keys() const { return keys_; }
    QTabBar *bar() const { return bar_; }

private:
    QTabBar *bar_;
    QStackedWidget *pages_;
    QStringList keys_;
};

} // namespace vantrosk
