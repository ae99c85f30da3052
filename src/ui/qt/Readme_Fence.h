#pragma once

#include <QStringList>
#include <QUrl>
#include <QWebEnginePage>
#include <QWebEngineUrlRequestInterceptor>

#include <functional>

namespace vantrosk {

/// The folders that a readme page may read. Native paths; links are followed before the comparison, so no
/// link leads out.
class Readme_Folders {
public:
    void Set(const QStringList &folders);
    bool Holds(const QUrl &address) const;
    /// How a missing file of the folders is really spelled: readmes were written where capitals make no
    /// difference. Empty when there is none.
    QUrl Other_spelling(const QUrl &address) const;
    /// Finds the spelling on the disk of a native path.
    std::function<QString(const QString &)> find_spelling;

private:
    QStringList folders_; ///< without links, each with a "/" behind it
};

/// Lets a page load nothing but local files of its folders.
class Readme_Request_Fence : public QWebEngineUrlRequestInterceptor {
    Q_OBJECT

public:
    Readme_Request_Fence(const Readme_Folders &folders, QObject *parent);
    void interceptRequest(QWebEngineUrlRequestInfo &info) override;

private:
    const Readme_Folders &folders_;
};

/// A page from outside: no script, no plug-in, no frame, no form, no window. A clicked link to the world is
/// told by `Link_clicked`; one to a place in the readme's folders is followed.
class Readme_Page : public QWebEnginePage {
    Q_OBJECT

public:
    Readme_Page(QWebEngineProfile *profile, const Readme_Folders &folders, QObject *parent);

Q_SIGNALS:
    void Link_clicked(const QUrl &address);

protected:
    bool acceptNavigationRequest(const QUrl &address, NavigationType type, bool is_main_frame) override;
    QStringList chooseFiles(FileSelectionMode, const QStringList &, const QStringList &) override {
        return {};
    }

private:
    void Click(const QUrl &address);

    const Readme_Folders &folders_;
};

} // namespace vantrosk
