#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace vantrosk {

struct Program;

/// A reference file that the community server has and this computer lacks, or has in an older form.
struct Reference_Offer {
    QString name; ///< as the server calls it, with or without ".VKDR"
    QString info;
    QString created;
};

/// What the browser of the tool shows after a link of the offers page was taken.
enum class Offer_View {
    unchanged, ///< the link was none of these
    page,      ///< the offers page, anew
    blank,     ///< "about:blank"
    closed     ///< "about:blank", and the browser is hidden
};

/// Whether an address is an act of the offers page, and not to be followed.
bool Is_offer_link(const QString &address);

/// The reference files that can be had from the community server: asked for, offered as a page whose links
/// are acts, fetched into `references` and recorded in `table_game_refs`. Names come from the server: one
/// that is no plain file name is never offered.
class Reference_Downloads {
public:
    explicit Reference_Downloads(Program &program) : program_(program) {}

    /// Asks the server and writes the page of its offers. False when it had nothing to say, or when the page
    /// could not be written.
    bool Look_for_new_files();
    /// Takes a link of the page by its whole address. One at a time: events are let through meanwhile.
    Offer_View Take_link(const QString &address);

    const std::vector<Reference_Offer> &offers() const { return offers_; }
    QString page_path() const;                      ///< Windows path of the offers page
    const QString &label() const { return label_; } ///< what came of the last call, for the user

private:
    void Offer_records(const QString &text);
    bool Is_wanted(const Reference_Offer &offer) const;
    void Make_page();
    bool Write_page();
    Offer_View Fetch_single(const QString &name);
    Offer_View Fetch_all();
    bool Fetch(const QString &name);
    void Record(const Reference_Offer &offer);
    void Remove_row(const QString &name);

    Program &program_;
    std::vector<Reference_Offer> offers_;
    QStringList page_lines_;
    QString label_;
    bool fetching_ = false;
};

} // namespace vantrosk
