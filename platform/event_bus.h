/// The event bus: named texts from one daemon to all that subscribed to the name.
///
/// Payloads are any bytes but NUL. Events of one publisher arrive in the order they were published.
#ifndef PLATFORM_EVENT_BUS_H
#define PLATFORM_EVENT_BUS_H

#ifdef __cplusplus
extern "C" {
#endif

typedef struct eventbus eventbus;

/// Called with the `user_data` of the subscription and the payload, which lives until the callback returns.
typedef void (*eventbus_callback)(void* user_data, const char* payload);

/// Opens a connection for receiving. Returns NULL with errno set on failure, in bounded time. The handle belongs to the
/// thread that opened it and must not be carried across a fork.
eventbus* eventbus_open(void);

/// Asks for an event. Returns 0 when the subscription is in force, so that nothing is missed that is published from
/// then on, by this process or another; non-zero with errno set, in bounded time, when it is not.
int eventbus_subscribe(eventbus* bus, const char* event, eventbus_callback callback, void* user_data);

/// Descriptor to wait on for input. It may be another one after eventbus_on_data_available().
int eventbus_fileno(eventbus* bus);

/// Runs the callbacks of what has arrived, on the calling thread; while anything is left the descriptor stays readable.
/// Returns 0 on success; non-zero with errno set when the bus is gone. It may wait for a bus that is started again.
int eventbus_on_data_available(eventbus* bus);

/// Closes the connection and releases the handle. NULL is allowed.
void eventbus_close(eventbus* bus);

/// Publishes from any thread; returns 0 when the bus has taken the event, non-zero with errno set, in bounded time.
int eventbus_publish(const char* event, const char* payload);

#ifdef __cplusplus
}
#endif
#endif
