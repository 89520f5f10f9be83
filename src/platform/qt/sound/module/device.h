#pragma once

#include <SDL.h>

#include <functional>
#include <string>

namespace platform::qt {

/// The sound device. While it is closed nothing of it is left, no thread and no connection.
class Device {
  public:
    /// The filler writes the next frames, from the device's own thread. The name is shown beside its volume.
    Device(const std::string& programName, std::function<void(float* samples, int frames)> filler);
    ~Device();
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    bool open();           ///< From now on it asks for frames; false if it can't be had.
    void closeVanished();  ///< Closes it if it was open and has been taken away.
    void close();          ///< Plays out what it has been given. Nothing if it isn't open.

    /// For as long as this lives the filler doesn't run.
    class Hold {
      public:
        explicit Hold(const Device& device) : id_(device.id_) { SDL_LockAudioDevice(id_); }
        ~Hold() { SDL_UnlockAudioDevice(id_); }
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

      private:
        SDL_AudioDeviceID id_;
    };

  private:
    static void SDLCALL fill(void* self, Uint8* bytes, int length);

    std::function<void(float* samples, int frames)> filler_;
    SDL_AudioDeviceID id_ = 0;
};

}  // namespace platform::qt
