#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/form.h"

/// Which forms are open, and which of them gets a key or a click. Both desktops share it, since it is a matter of play
/// what a key does that is held while a dialog opens, or a click that a message box comes between: it must be the same
/// where the rules are tested and where they are played. A back end only shows the forms, and tells of keys and of the
/// pointer as they come.
///
/// A handler may do anything: open a dialog, let go of its own form, serve events and with them further keys. So after
/// each one it is asked whether a form has opened or gone meanwhile, and what the key still meant then is over.
namespace platform {

/// One press of a key, or one repeat of it.
struct Stroke {
    int code = 0;       ///< As in platform::key; 0 for none.
    int character = 0;  ///< In Latin-1 or key::OtherCharacter; 0 for a key without one.
    bool repeat = false;
};

/// What a back end shows of a form. It is told what to do by the form alone.
class FormView {
  public:
    virtual void fitToSurface() = 0;                                      ///< The surface has another size.
    virtual void place() = 0;                                             ///< The form has another place.
    virtual void showChanges() = 0;                                       ///< Shows what has been drawn.
    virtual void setCaption(const std::string& text) = 0;                 ///< As Form has it.
    virtual void announce(const std::function<std::string()>& text) = 0;  ///< As Form has it.
    virtual void open(bool asDialog) = 0;                                 ///< Comes up on the screen.
    virtual void focusFirst() = 0;  ///< Its first control has the focus, unless one has it.
    virtual void wait() = 0;        ///< Serves events until the form leaves the screen.
    virtual void leave() = 0;       ///< Leaves the screen. Nothing if it isn't there.
    virtual void retire() = 0;      ///< The form is gone; it deletes itself, now or later.

  protected:
    ~FormView() = default;
};

/// The back end's view of a new form.
FormView* makeFormView(Form& form);

/// A form, which may be gone while one of its handlers runs: who calls one holds this.
struct Form::Impl : std::enable_shared_from_this<Impl> {
    explicit Impl(Form& owner) : form(&owner), view(*makeFormView(owner)) {}

    void show(bool asDialog);
    void unload();
    void leave();
    void activate();  ///< It is on top now.

    Form* form;  ///< Null when it is gone.
    FormView& view;
    Surface surface;
    double left = 0;         ///< Twips.
    double top = 0;          ///< Twips.
    bool loaded = false;     ///< From before onLoad to after onUnload.
    bool unloading = false;  ///< While onUnload runs.
};

/// What may be done about a key that went down.
enum class Press {
    New,     ///< It begins here.
    Repeat,  ///< Of a press that was the owner's own.
    Foreign  ///< A repeat of a press that began before something else: one press never answers two dialogs.
};

/// The open forms, and the boxes over them: message boxes and menus, which have all keys and take all clicks.
class Desk {
  public:
    Form::Impl* main() const { return main_; }                                      ///< Null if it isn't open.
    const std::vector<Form::Impl*>& dialogs() const { return dialogs_; }            ///< The top-most last.
    Form::Impl* top() const { return dialogs_.empty() ? main_ : dialogs_.back(); }  ///< Null if no form is open.
    void* box() const { return boxes_.empty() ? nullptr : boxes_.back(); }  ///< The top-most; null if there is none.
    const void* keyOwner() const;                                           ///< Who has the keys; may be null.
    bool boxIsOpen() const { return !boxes_.empty(); }
    /// Whether a dialog has closed and who has shown it doesn't know yet. What comes meanwhile, in one go with the key
    /// that has closed it, means nothing: the form below has still to do what the answer brings.
    bool isReturning() const;
    bool keyRepeats() const { return keyRepeats_; }  ///< Whether the key whose handler runs is a repeat.

    void openBox(void* box);         ///< It has the forms' keys from now on; with null nobody has them.
    void closeBox(const void* box);  ///< It is gone again. Nothing if it was.

    /// A key goes down; any number will do that tells it from others. Until it comes up its press belongs to that
    /// owner, or with null to nobody.
    Press keyDown(uint32_t key, bool repeats, const void* owner);
    const void* keyUp(uint32_t key);  ///< Returns whose press it was.
    void letGoOfKeys();               ///< Repeats of no key that is held now are heard any more.

    /// Offers a key to the handlers of the form on top; false if one has swallowed it or it was overtaken.
    bool offer(Stroke& stroke);
    /// The same for one handler, of the key's code or of its character.
    bool passes(const std::function<void(int&)>& handler, int& value);

    /// The pointer, in pixels of the form on top.
    void movePointer(int x, int y) { meansEnterAt(x, y); }
    void buttonDown(int x, int y);
    bool buttonUp(int x, int y);  ///< True if the click is a press of Enter, for whoever has the keys.

  private:
    friend Form;
    friend Form::Impl;

    void open(Form::Impl& form, bool asDialog);
    void wait(Form::Impl& dialog);
    void close(Form::Impl& form);
    void unloadAbove(const Form::Impl& form);
    void ignoreRepeatsFor(const void* owner);
    bool meansEnterAt(int x, int y);

    Form::Impl* main_ = nullptr;
    std::vector<Form::Impl*> dialogs_;
    std::vector<void*> boxes_;
    std::vector<const Form::Impl*> shown_;  // the dialogs that somebody waits for, the last at the end
    int changes_ = 0;                       // how often a form has opened or gone
    bool keyRepeats_ = false;
    const Form::Impl* clicked_ = nullptr;     // on which the left button went down, where Enter means something
    std::map<uint32_t, const void*> owners_;  // of the keys that have gone down
};

/// The one desk of the program; never destroyed, since forms may be let go at the very end.
Desk& desk();

}  // namespace platform
