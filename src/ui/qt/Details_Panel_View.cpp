#include "Details_Panel_View.h"

#include "Elided_Label.h"
#include "Finished_Panel.h"
#include "Flow_Layout.h"
#include "Mission_Picture.h"

#include "core/Games.h"
#include "core/Program.h"
#include "library/Get_Info.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QStyle>
#include <QVBoxLayout>

namespace vantrosk {

namespace {

constexpr int margin = 12, gap = 8, button_icon = 20;
constexpr int head_caption_width = 72, fact_caption_width = 80;

constexpr std::array feature_names{"New Graphics", "New Objects",   "New Sounds", "Scripts",
                                   "Gamesys",      "Miss Graphics", "AutoMap",    "Videos"};

QFormLayout *Make_form(int line_gap) {
    auto *form = new QFormLayout;
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(gap);
    form->setVerticalSpacing(line_gap);
    form->setLabelAlignment(Qt::AlignLeft);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    return form;
}

bool Is_original(const Program &program) {
    return program.FM_PANEL.startsWith(QLatin1String("Original"), Qt::CaseInsensitive);
}

/// The details of the game's own missions are blank; their row says what they are.
QString Current_row_name(const Fm_List &list) {
    const bool is_there = list.current_row >= 0 && list.current_row < static_cast<int>(list.rows.size());
    return is_there ? list.rows[static_cast<size_t>(list.current_row)].cells[col_name] : QString();
}

QString Languages_text(const Details_Panel &details) {
    QStringList languages;
    for (const QString &language : details.languages)
        if (!language.isEmpty())
            languages << language;
    return languages.join(QStringLiteral(", "));
}

/// The community's score with the number of people behind it.
QString Community_text(const Details_Panel &details) {
    if (details.group_score.toDouble() <= 0)
        return {};
    const QString score = QStringLiteral("%1 of 10").arg(details.group_score);
    return details.group_label.isEmpty() ? score : score + QStringLiteral(" · ") + details.group_label;
}

void Set_kind(QWidget *widget, const QString &kind) {
    if (widget->property("kind").toString() == kind)
        return;
    widget->setProperty("kind", kind);
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
}

} // namespace

Details_Panel_View::Details_Panel_View(const Program &program, const Theme &theme, QWidget *parent)
    : QWidget(parent), program_(program), theme_(theme), stack_(new QStackedWidget) {
    setObjectName(QStringLiteral("details_panel"));
    setAttribute(Qt::WA_StyledBackground);

    auto *mission = new QWidget;
    auto *column = new QVBoxLayout(mission);
    column->setContentsMargins(margin, margin, margin, 0);
    column->setSpacing(gap);
    column->addWidget(Make_head());
    column->addWidget(Make_buttons());
    column->addWidget(Make_facts(), 1);

    auto *nothing = new QLabel(QStringLiteral("Select a mission in the list to see what it is, to install it "
                                              "and to play it."));
    nothing->setObjectName(QStringLiteral("details_empty"));
    nothing->setProperty("kind", QStringLiteral("second"));
    nothing->setAlignment(Qt::AlignCenter);
    nothing->setWordWrap(true);
    nothing->setMargin(margin * 2);

    stack_->addWidget(nothing);
    stack_->addWidget(mission);
    auto *all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(stack_);
    Refresh();
}

Elided_Label *Details_Panel_View::Add_field(QFormLayout *form, const QString &caption,
                                            const QString &object_name) {
    auto *label = new QLabel(caption);
    label->setProperty("kind", QStringLiteral("caption"));
    label->setFixedWidth(form->property("caption_width").toInt());
    auto *value = new Elided_Label;
    value->setObjectName(object_name);
    value->setAccessibleDescription(caption);
    form->addRow(label, value);
    return value;
}

QWidget *Details_Panel_View::Make_head() {
    auto *head = new QWidget;
    auto *row = new QHBoxLayout(head);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(margin);
    picture_ = new Mission_Picture(theme_);
    row->addWidget(picture_, 0, Qt::AlignTop);
    head_form_ = Make_form(5);
    QFormLayout *form = head_form_;
    form->setProperty("caption_width", head_caption_width);
    name_ = Add_field(form, QStringLiteral("Name"), QStringLiteral("details_name"));
    name_->setProperty("kind", QStringLiteral("strong"));
    author_ = Add_field(form, QStringLiteral("Author"), QStringLiteral("details_author"));
    game_ = Add_field(form, QStringLiteral("Game"), QStringLiteral("details_game"));
    languages_ = Add_field(form, QStringLiteral("Languages"), QStringLiteral("details_languages"));
    row->addLayout(form, 1);
    return head;
}

QWidget *Details_Panel_View::Make_buttons() {
    auto *buttons = new QWidget;
    auto *row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    play_ = new QPushButton(QStringLiteral("&Play"));
    play_->setObjectName(QStringLiteral("play"));
    play_->setAccessibleName(QStringLiteral("Play"));
    install_ = new QPushButton(QStringLiteral("&Install"));
    install_->setObjectName(QStringLiteral("install"));
    for (QPushButton *button : {play_, install_}) {
        button->setProperty("kind", QStringLiteral("primary"));
        button->setIconSize({button_icon, button_icon});
        row->addWidget(button, 1);
    }
    editor_ = new QPushButton;
    editor_->setObjectName(QStringLiteral("editor"));
    editor_->setProperty("kind", QStringLiteral("tall"));
    row->addWidget(editor_);
    connect(editor_, &QPushButton::clicked, this, &Details_Panel_View::Editor_pressed);
    reset_ = new QPushButton(QStringLiteral("R&eset"));
    reset_->setObjectName(QStringLiteral("reset"));
    reset_->setProperty("kind", QStringLiteral("tall"));
    reset_->setAccessibleName(QStringLiteral("Reset"));
    reset_->setToolTip(QStringLiteral("Forgets what is stored of this mission, your score and review "
                                      "included; the zip stays (Ctrl+Shift+R)"));
    row->addWidget(reset_);
    connect(reset_, &QPushButton::clicked, this, &Details_Panel_View::Reset_pressed);
    play_->setIcon(Line_icon(QStringLiteral("play"), theme_.on_quickbar, QColor(ink::text_faint)));
    connect(play_, &QPushButton::clicked, this, &Details_Panel_View::Play_pressed);
    connect(install_, &QPushButton::clicked, this, &Details_Panel_View::Install_pressed);
    return buttons;
}

QWidget *Details_Panel_View::Make_facts() {
    auto *facts = new QWidget;
    facts->setObjectName(QStringLiteral("details_facts"));
    auto *column = new QVBoxLayout(facts);
    column->setContentsMargins(0, 4, 0, gap);
    column->setSpacing(margin);
    facts_form_ = Make_form(4);
    facts_form_->setProperty("caption_width", fact_caption_width);
    small_finished_ = new Finished_Panel(program_, Finished_Panel::Set::letters, nullptr);
    auto *finished = new QLabel(QStringLiteral("Finished"));
    finished->setProperty("kind", QStringLiteral("caption"));
    finished->setFixedWidth(fact_caption_width);
    facts_form_->addRow(finished, small_finished_);
    archive_ = Add_field(facts_form_, QStringLiteral("Archive"), QStringLiteral("details_archive"));
    unpacked_ = Add_field(facts_form_, QStringLiteral("Unpacked"), QStringLiteral("details_unpacked"));
    last_played_ =
        Add_field(facts_form_, QStringLiteral("Last played"), QStringLiteral("details_last_played"));
    saves_ = Add_field(facts_form_, QStringLiteral("Saves"), QStringLiteral("details_saves"));
    community_ = Add_field(facts_form_, QStringLiteral("Community"), QStringLiteral("details_community"));
    column->addLayout(facts_form_);

    auto *flow = new Flow_Layout(6);
    for (const char *name : feature_names) {
        auto *chip = new QLabel(QLatin1String(name));
        chip->setProperty("kind", QStringLiteral("chip_off"));
        chips_.push_back(chip);
        flow->addWidget(chip);
    }
    column->addLayout(flow);
    column->addStretch();

    auto *area = new QScrollArea;
    area->setObjectName(QStringLiteral("details_facts_area"));
    area->setAccessibleName(QStringLiteral("Facts about the mission"));
    area->setToolTip(QStringLiteral("Facts about the mission"));
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(facts);
    return area;
}

void Details_Panel_View::Refresh() {
    const bool has_mission = !program_.screen.no_mission_selected;
    stack_->setCurrentIndex(has_mission ? 1 : 0);
    Refresh_buttons();
    if (!has_mission)
        return;
    Refresh_head();
    Refresh_facts();
}

void Details_Panel_View::Refresh_head() {
    const Details_Panel &details = program_.screen.details;
    const bool original = Is_original(program_);
    const std::pair<Elided_Label *, QString> fields[] = {
        {name_, original ? Current_row_name(program_.screen.list) : details.name},
        {author_, details.author},
        {game_, original ? Game_Text(program_.CURRENT_GAME) : details.game},
        {languages_, Languages_text(details)},
    };
    for (const auto &[value, text] : fields) {
        value->Set_text(text);
        head_form_->setRowVisible(value, !text.isEmpty());
    }
    name_->Set_most_points(Name_Points(program_));
    if (!details.animation_paths.isEmpty() && program_.tweaks.ENABLE_ANIM_GIFS) {
        QStringList frames;
        for (const QString &path : details.animation_paths)
            frames << program_.files.to_native(path);
        picture_->Show_frames(frames);
    } else {
        const QString path = details.picture_path;
        picture_->Show_picture(path.isEmpty() ? QString() : program_.files.to_native(path),
                               program_.tweaks.ENABLE_ANIM_GIFS);
    }
}

void Details_Panel_View::Refresh_buttons() {
    const Details_Panel &details = program_.screen.details;
    const bool has_mission = !program_.screen.no_mission_selected;
    const bool original = Is_original(program_);
    play_->setEnabled(has_mission && details.play_enabled);
    install_->setEnabled(has_mission && details.install_enabled);
    reset_->setEnabled(has_mission && details.reset_enabled);
    // Before a game is chosen the button says what most games have.
    const Editor_Button &active = program_.screen.editor;
    const Editor_Button editor =
        active.caption.isEmpty()
            ? Editor_Button{QStringLiteral("&DromEd"), QStringLiteral("Load Mission into DromEd"), false}
            : active;
    editor_->setText(editor.caption);
    editor_->setAccessibleName(QString(editor.caption).remove(u'&'));
    editor_->setToolTip(editor.tip);
    editor_->setEnabled(has_mission && editor.enabled);
    play_->setToolTip(play_->isEnabled() ? QStringLiteral("Starts the game (Ctrl+P)")
                                         : QStringLiteral("Starts the game, once the mission is installed"));
    install_->setText(details.shows_installed ? QStringLiteral("&Installed") : QStringLiteral("&Install"));
    install_->setAccessibleName(install_->text().remove(u'&'));
    const QString icon = details.shows_installed ? QStringLiteral("installed")
                         : original              ? QStringLiteral("restore")
                                                 : QStringLiteral("install");
    install_->setIcon(Line_icon(icon, theme_.on_quickbar, QColor(ink::text_faint)));
    install_->setToolTip(original ? QStringLiteral("Puts the game's own missions back (Ctrl+I)")
                         : details.shows_installed
                             ? QStringLiteral("This mission is in the game's folder")
                             : QStringLiteral("Puts the mission into the game's folder; "
                                              "the one that is there leaves (Ctrl+I)"));
}

void Details_Panel_View::Refresh_facts() {
    const Details_Panel &details = program_.screen.details;
    const bool original = Is_original(program_);
    const QString archive = details.size_text.isEmpty()
                                ? program_.FM_PANEL
                                : program_.FM_PANEL + QStringLiteral(", ") + details.size_text;
    const std::pair<Elided_Label *, QString> facts[] = {
        {archive_, original ? QString() : archive}, {unpacked_, details.unpacked_text},
        {last_played_, details.last_played_text},   {saves_, details.saves_text},
        {community_, Community_text(details)},
    };
    for (const auto &[value, text] : facts) {
        value->Set_text(text);
        facts_form_->setRowVisible(value, !text.isEmpty());
    }
    facts_form_->setRowVisible(small_finished_, details.record_shown);
    small_finished_->Refresh();
    community_->setToolTip(details.group_tip);
    for (size_t i = 0; i < chips_.size(); ++i) {
        chips_[i]->setVisible(!original);
        Set_kind(chips_[i], details.features[i] ? QStringLiteral("chip_on") : QStringLiteral("chip_off"));
        chips_[i]->setAccessibleDescription(details.features[i] ? QStringLiteral("yes")
                                                                : QStringLiteral("no"));
        chips_[i]->setToolTip(details.features[i] ? QStringLiteral("The mission brings this")
                                                  : QStringLiteral("The mission does not bring this"));
    }
}

QPushButton *Details_Panel_View::next_step() const {
    return play_->isEnabled() ? play_ : install_;
}

QString Details_Panel_View::shown_text(const QString &object_name) const {
    const auto *label = findChild<Elided_Label *>(object_name);
    return label ? label->whole_text() : QString();
}

bool Details_Panel_View::shows_a_mission() const {
    return stack_->currentIndex() == 1;
}

} // namespace vantrosk
