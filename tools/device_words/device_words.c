/* What devicectl can say through the headers of platform/ alone: a program for the device itself, so that sessions can
   be played on it from elsewhere. It needs nothing but those headers, json-c and the device's libraries.

   config get|set JSON · status get|set JSON · publish EVENT TEXT · call SERVICE METHOD TEXT · factory get KEY · watch
*/
#include "platform/event_bus.h"
#include "platform/factory_data.h"
#include "platform/json_token.h"
#include "platform/lpc.h"
#include "platform/user_config.h"
#include "platform/user_status.h"

#include <errno.h>
#include <json-c/json.h>
#include <poll.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

/* The events that a console listens to. */
static const char* const consoleEvents[] = {
    "controlUserConfigChanged",  "configUserConfigChanged",  "audioUserConfigChanged", "videoUserConfigChanged",
    "networkUserConfigChanged",  "systemUserConfigChanged",  "CommandFeedback",        "videoStatusConfigChanged",
    "systemStatusConfigChanged", "UpgradeSlaveVersionQuery",
};

static int fail(const char* what) {
    fprintf(stderr, "devicectl: %s: %s\n", what, errno != 0 ? strerror(errno) : "nothing is stored there");
    return 1;
}

/* Prints the value to which the first members of the query lead. */
static int printFound(json_token* found, const char* query) {
    json_token* asked = json_token_parse(query);
    json_token* value = found;
    json_token* step = asked;
    while (value != NULL && json_object_is_type(step, json_type_object) && json_object_object_length(step) > 0) {
        struct json_object_iterator first = json_object_iter_begin(step);
        value = json_object_object_get(value, json_object_iter_peek_name(&first));
        step = json_object_iter_peek_value(&first);
    }
    const int result = value != NULL ? 0 : fail(query);
    if (value != NULL)
        puts(json_object_to_json_string_ext(value, JSON_C_TO_STRING_PLAIN | JSON_C_TO_STRING_NOSLASHESCAPE));
    json_token_ref_put(asked);
    json_token_ref_put(found);
    return result;
}

static int getConfig(char** words) { return printFound(user_config_query_to_json_token(words[0]), words[0]); }
static int getStatus(char** words) { return printFound(user_status_query_to_json_token(words[0]), words[0]); }
static int setConfig(char** words) { return user_config_update(words[0]) == 0 ? 0 : fail(words[0]); }
static int setStatus(char** words) { return user_status_update(words[0]) == 0 ? 0 : fail(words[0]); }
static int publish(char** words) { return eventbus_publish(words[0], words[1]) == 0 ? 0 : fail(words[0]); }

static int call(char** words) {
    enum { limit = 10000 };
    lpc_completion* completion = NULL;
    if (lpc_proxy_call_with_reply(words[0], words[1], words[2], &completion) != 0) return fail(words[0]);
    const int isAnswered = lpc_completion_wait(completion, limit) == 0;
    const int result = isAnswered ? 0 : fail(words[0]);
    const char* reply = isAnswered ? lpc_completion_data(completion) : NULL;
    if (reply != NULL && *reply != '\0') puts(reply);
    lpc_completion_destroy(completion);
    return result;
}

static int getFactoryData(char** words) {
    char* text = NULL;
    if (factory_read_data(words[0], &text) != 0) return fail(words[0]);
    puts(text);
    free(text);
    return 0;
}

static void printVisibly(const char* text) {
    static const char controls[] = "\a\b\t\n\v\f\r\\", letters[] = "abtnvfr\\";
    for (; *text != '\0'; ++text) {
        const unsigned char byte = (unsigned char)*text;
        const char* control = strchr(controls, byte);
        if (control != NULL) {
            printf("\\%c", letters[control - controls]);
        } else {
            printf(byte < ' ' || byte == 0x7f ? "\\%03o" : "%c", byte);
        }
    }
}

static void printEvent(void* event, const char* payload) {
    printf("event %s ", (const char*)event);
    printVisibly(payload);
    puts("");
    fflush(stdout);
}

static int watch(char** words) {
    (void)words;
    eventbus* bus = eventbus_open();
    if (bus == NULL) return fail("bus");
    for (size_t i = 0; i < sizeof consoleEvents / sizeof *consoleEvents; ++i) {
        const char* event = consoleEvents[i];
        if (eventbus_subscribe(bus, event, printEvent, (void*)event) != 0) return fail(event);
    }
    for (;;) {
        struct pollfd input = {eventbus_fileno(bus), POLLIN, 0};
        if (poll(&input, 1, -1) == 1 && eventbus_on_data_available(bus) != 0) return fail("bus");
    }
}

struct Verb {
    const char *first, *second;
    int words;
    int (*run)(char** words);
};

static const struct Verb verbs[] = {
    {"config", "get", 1, getConfig},       {"config", "set", 1, setConfig}, {"status", "get", 1, getStatus},
    {"status", "set", 1, setStatus},       {"publish", NULL, 2, publish},   {"call", NULL, 3, call},
    {"factory", "get", 1, getFactoryData}, {"watch", NULL, 0, watch},
};

int main(int argc, char** argv) {
    for (size_t i = 0; i < sizeof verbs / sizeof *verbs; ++i) {
        const int verbWords = verbs[i].second != NULL ? 2 : 1;
        if (argc != 1 + verbWords + verbs[i].words || strcmp(argv[1], verbs[i].first) != 0) continue;
        if (verbs[i].second != NULL && strcmp(argv[2], verbs[i].second) != 0) continue;
        errno = 0;
        return verbs[i].run(argv + 1 + verbWords);
    }
    fputs(
        "usage: device_words config get|set JSON | status get|set JSON | publish EVENT TEXT | "
        "call SERVICE METHOD TEXT | factory get KEY | watch\n",
        stderr);
    return 2;
}
