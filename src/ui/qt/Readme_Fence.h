#pragma once

#include <QStringList>
#include <QUrl>
#include <QWebEnginePage>
#include <QWebEngineUrlRequestInterceptor>

#include <functional>

namespace vantrosk {

/// What a readme page may read: files of its folders, or for a page of the world that the user has configured
/// what its own site has. Native paths; links are followed before the comparison, so no link leads out.
class Readme_Folders {
public:
    /// Forgets the site.
    void Set(const QStringList &folders);
    void Set_site(const QUrl &address);
    const QUrl &site() const { return site_; }

    bool Holds(const QUrl &address) const;
    /// Whether an address is of the site's own host and port.
    bool Is_of_the_site(const QUrl &address) const;
    /// The file that is read for an address: the file itself, its other spelling (readmes were written where
    /// capitals make no difference), one of the program's own pictures for a page that lies elsewhere, or a
    /// sharper copy of such a picture. Empty when there is none that may be read.
    QUrl Place_of(const QUrl &address) const;

    /// Finds the spelling on the disk of a native path.
    std::function<QString(const QString &)> find_spelling;
    /// The program's folders that pages name as "../NAME/": native paths without a trailing separator.
    QStringList shared_folders;
    /// A better copy of a picture of those folders; nothing for none.
    std::function<QString(const QString &)> find_sharper;

private:
    QUrl Other_spelling(const QUrl &address) const;
    QUrl In_shared_folder(const QUrl &address) const;

    QUrl site_;           ///< empty while local pages are shown
    QStringList folders_; ///< without links, each with a "/" behind it
};

/// The address as the user's own browser or mail program may get it; empty for one that is not for them. Of a
/// mail only receiver, subject and text are left: nothing of this computer is attached to it.
QUrl Address_for_the_world(const QUrl &address);

/// Lets a page load nothing but what its folders or its site hold.
class Readme_Request_Fence : public QWebEngineUrlRequestInterceptor {
    Q_OBJECT

public:
    Readme_Request_Fence(const Readme_Folders &folders, QObject *parent);
    void interceptRequest(QWebEngineUrlRequestInfo &info) override;

private:
    const Readme_Folders &folders_;
};

/// A profile that keeps nothing on the disk, takes no cookie and downloads nothing.
QWebEngineProfile *Make_fenced_profile(const Readme_Folders &folders, QObject *parent);

/// A page from outside: no script, no plug-in, no frame, no form, no window, no right to anything. A clicked
/// link to the world is told by `Link_clicked`; one to a place in the readme's folders is followed.
class Readme_Page : public QWebEnginePage {
    Q_OBJECT

public:
    Readme_Page(QWebEngineProfile *profile, const Readme_Folders &folders, QObject *parent);

    /// Asked first about a clicked link; true when it was an act and not an address.
    std::function<bool(const QUrl &)> take_link;

Q_SIGNALS:
    void Link_clicked(const QUrl &address);

protected:
    bool acceptNavigationRequest(const QUrl &address, NavigationType type, bool is_main_frame) override;
    QStringList chooseFiles(FileSelectionMode, const QStringList &, const QStringList &) override {
        return {};
    }

private:
    void Refuse_requests();
    void Click(const QUrl &address);

    const Readme_Folders &folders_;
};

} // namespace vantrosk
