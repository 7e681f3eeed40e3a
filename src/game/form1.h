// The game: one object with one record of fields, and the index of every operation that more than
// one file calls. An operation is defined in the file of its topic, in the folder named by the
// section.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "game/game_state.h"
#include "services/events.h"
#include "services/platform.h"

namespace tamlo {

struct ListMenu;     ///< speech/menus.h
struct YesNoPrompt;  ///< speech/menus.h

class Form1 final : private KeyListener {
  public:
    /// The services must outlive the game.
    explicit Form1(const Platform& services);

    GameState gs;
    Platform platform;

    ///< --- game ------------------------------------------------------------------------------
    /// The whole game, from the start-up on. Leaves only by EndOfProcess. See startup for `claim`.
    void Form_Load(const std::function<void()>& claim = {});
    /// Start-up: sound, voice, files, settings, saved game; returns before the main menu. `claim`,
    /// if any, is called once the data folder is known, before a file in it is read or written.
    void startup(const std::function<void()>& claim = {});
    /// Main menu; returns when a game has been started.
    void mainmenu();
    /// Start of a game: chooses the city. False: back to the main menu.
    bool startgame();
    /// A working day; ends the process.
    [[noreturn]] void workday();
    /// A trip with the orders handed out; returns at the restaurant after the last delivery.
    void trip();
    /// The scene at the door for order k.
    void deliver(int k);
    /// Return to the restaurant: summary and promotions; ends the game above 2000 dollars.
    void comeback();
    /// The end of the game, with the record; ends the process.
    [[noreturn]] void endgame();
    /// Compares the time with the record, and stores a new one.
    void checkrecord();
    /// Starts the launcher, if there is one, and ends the process.
    [[noreturn]] void runEnd();

    ///< --- speech ----------------------------------------------------------------------------
    /// Speaks and returns when the text has been spoken in full.
    void say(std::string_view text);
    /// Queues the text and returns at once.
    void say2(std::string_view text);
    /// Drops all speech.
    void stopspeech();
    /// True while something is being spoken.
    bool speaking() const;
    /// Waits for the end of speech or a key, then silences; the key stays pending.
    void w4s();
    /// Waits so many seconds.
    void dy(double seconds);
    /// Clears the pending key; a key still queued survives in `g`.
    void clk();
    /// Waits for one key, then silences speech.
    void getkey();
    /// Speaks the prompt and reads a line into `r`.
    void getter(std::string_view prompt);
    /// Speaks `g2` quickly, cutting off other speech; F1 silently.
    void saykey();
    /// One event-processing turn; may sleep up to `rest` seconds if nothing happens.
    void pumpEvents(double rest = 0);
    /// Counts the voices into `nov`; without any, shows a message and ends the process.
    void countvoices();
    /// One event turn of a wait that a key ends: sleeps up to `rest` seconds unless a key is
    /// pending.
    void keyturn(double rest);
    /// A fresh speech engine with the voice, rate and volume of the settings.
    void setupvoice();
    /// Runs a list menu; returns the item chosen, from 1, or the value of an extra key that left
    /// the menu.
    int runMenu(const ListMenu& menu);
    /// Asks a yes/no question: 1 yes, 2 no.
    int askYesNo(const YesNoPrompt& prompt);
    /// The options menu.
    void omen();
    void changevoice();
    void adjrate();
    void adjvol();
    void choosegender();
    /// Start reading out the instructions, or those about the special keys.
    void readins();
    void speckeys();

    ///< --- sound -----------------------------------------------------------------------------
    /// Loads NAME.wav into a buffer field, at `wavol` and its own rate plus one.
    void prepare(std::unique_ptr<SoundBuffer>& buffer, std::string_view name);
    /// Plays to the end; keys stay pending.
    void play(std::string_view name);
    /// Plays until the end or a key.
    void play2(std::string_view name);
    /// Starts an effect and goes on.
    void play3(std::string_view name);
    void playloop(std::string_view name);
    void stoploop();
    /// Waits while a once-played buffer sounds.
    void waitfor(const SoundBuffer& buffer);
    /// Opens the sound device.
    void opensound();
    /// Starts the title sound; waits for its end or a key.
    void starttitle();
    void endtitle();
    /// The background: start one at random, fade it down and up, stop it.
    void pbg();
    void bgdown();
    void bgup();
    void bgstop();
    /// Load the sounds of the vehicle, the restaurant and the background; the vehicle's only.
    void ldwv();
    void ldwv2();
    /// Sets `wcv` to 1 if a wave file is missing or altered.
    void checkwave();

    ///< --- city ------------------------------------------------------------------------------
    /// The default street names.
    void sos();
    void saywhere();
    void saylay();
    /// Drives one block in the heading; at the city limit, beeps and stays.
    void moveblock();
    /// Load the default streets file, or the chosen one.
    void setstreets();
    void setstreets2();
    /// Writes a streets file with the default names; false if it cannot be written.
    bool printstreets(const std::string& name);
    /// Lists the streets files; lets the player choose one.
    void glocs();
    void ssf(std::string_view prompt);
    /// The flows of the main menu; createcity tells whether a file was created.
    bool createcity();
    void editcity();
    void deletecity();

    ///< --- orders ----------------------------------------------------------------------------
    /// Makes up the orders of a trip.
    void getord();
    void sayord();
    void saytime();
    void sayctt();
    void sayrealtime();
    /// Does what F2 to F6 do in every menu of the day; false if the pending key is none of them.
    bool announce();
    /// Money as text, into `tp5`.
    void fm5(double dollars);
    /// The same, also returned.
    std::string money(double dollars);
    /// Fills the table of toppings.
    void settoppings();

    ///< --- driving ---------------------------------------------------------------------------
    /// Asks for the speed of the next block.
    void GetSped();
    /// The delivery area of the vehicle.
    void setmaxa();
    /// The road events of the block just driven.
    void checkspec();
    void playambu();
    void playtruck();
    /// Plays one of the seventeen random scenes, 1 to 17.
    void playscene(int number);
    /// Game seconds, added to the clock and to the trip time.
    void addtime(double seconds);
    void startcar();
    void playgo();
    void pidl();
    void stoppidl();
    void ppk();
    void stopppk();
    void togcar();
    /// Seed the random numbers from the clock; draw the integer part of (random * n) + k.
    void seed();
    int draw(int n, int k = 1);

    ///< --- store -----------------------------------------------------------------------------
    void getdatapath();
    void readCFG();
    void printCFG();
    /// Says, once each, that files can't be read or written.
    void telltroubles();
    /// Full path of one of the player's files.
    std::string path(std::string_view name) const;
    /// Renames a file that can't be decoded to a new name; false if that fails.
    bool putaside(const std::string& name);
    /// Starts the daily log with a header; appends a line to it.
    void startlog();
    void logline(std::string_view line);
    /// Speaks a text in full and then logs it; queues it and logs it; logs it and then speaks it.
    void saylog(std::string_view text);
    void say2log(std::string_view text);
    void logsay(std::string_view text);
    /// Quits for the day: wage, saved game. False if the game could not be saved.
    bool saga();
    /// Restores the saved game, if there is one; else starts the daily log.
    void gesaga();
    /// Deletes the saved game if the player confirms, and restarts the game.
    void desag();
    /// Deletes the saved game, if there is one; says so and returns false if that fails.
    bool removesaga();
    /// Removes the saved game of a career that is over. One that could not be read at the start is
    /// another career's, and stays.
    void endsaga();

  private:
    void Form_KeyDown(int code, int modifiers) override;
};

}  // namespace tamlo
