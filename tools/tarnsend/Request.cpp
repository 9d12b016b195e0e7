#include "tools/tarnsend/Request.h"

#include "base/Product.h"

#include <QCommandLineParser>

namespace tarnsend {

namespace {

constexpr const char* defaultComponent = "TN_OCUVA_SERVER";

constexpr const char* description =
    "Sends messages to the programs of the simulated host, as the host itself does, or shows them.\n"
    "\n"
    "  tarnsend OCUVA_WAKEUP\n"
    "  tarnsend OCUVA_IS_SERVER_UP --wait OCUVA_SERVER_IS_UP --timeout 2000\n"
    "  tarnsend OCUVA_SLEEP OCUVA_AUTOFOCUS\n"
    "  tarnsend --listen\n"
    "\n"
    "Each message that is received is one line on standard output: component, sub-component and identifier,\n"
    "separated by tabs; tab, line feed, carriage return and backslash stand as \\t, \\n, \\r and \\\\.";

constexpr const char* exitCodes =
    "\n"
    "Exit codes:\n"
    "  0  done: taken by at least one program; with --wait, the answer has come\n"
    "  1  the data folder or the message bus cannot be used\n"
    "  2  the command line is not understood\n"
    "  3  time-out: the answer, or with --listen the last of COUNT messages, has not come\n"
    "  4  nobody took a message: no program listens on this data folder\n"
    "Taken means that the message was handed over; whether a program acts on it is up to the program.\n";

struct Options {
    QCommandLineOption wait{
        QStringLiteral("wait"),
        QStringLiteral("After sending, wait for a message with this identifier and print it. "
                       "An answer cannot be missed: listening begins before sending."),
        QStringLiteral("ID")};
    QCommandLineOption listen{
        QStringLiteral("listen"),
        QStringLiteral("Print the messages that come, until SIGINT, --timeout or --count.")};
    QCommandLineOption timeout{
        QStringLiteral("timeout"),
        QStringLiteral("How long to wait or to listen, in milliseconds. Without it: with "
                       "--wait 5000, with --listen no limit."),
        QStringLiteral("MS")};
    QCommandLineOption count{QStringLiteral("count"), QStringLiteral("Listen for N messages."),
                             QStringLiteral("N")};
    QCommandLineOption component{QStringLiteral("component"),
                                 QStringLiteral("Component to send to, TN_OCUVA_SERVER if not given; with "
                                                "--listen the only one to print."),
                                 QStringLiteral("NAME")};
    QCommandLineOption sub{QStringLiteral("sub"),
                           QStringLiteral("Sub-component to send with, empty if not given."),
                           QStringLiteral("NAME")};
    QCommandLineOption byName{
        QStringLiteral("by-name"),
        QStringLiteral("MESSAGE is a name: the identifier that equals it without regard to "
                       "letter case (OCUVA_WakeUp).")};
    QCommandLineOption data{
        QStringLiteral("data"),
        QStringLiteral("Data folder of the programs; else OCUVA_DATA, else the user's own."),
        QStringLiteral("DIR")};
    QCommandLineOption version{{QStringLiteral("v"), QStringLiteral("version")},
                               QStringLiteral("Print the version.")};
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")},
                            QStringLiteral("Print this text.")};
};

Notice misuse(const std::string& reason) {
    return {"tarnsend: " + reason + "\nTry: tarnsend --help\n", exitUsage};
}

/// A whole number of at least `smallest`; nothing for any other text.
std::optional<int> numberFrom(const QString& text, int smallest) {
    bool understood = false;
    const int number = text.toInt(&understood);
    return understood && number >= smallest ? std::optional(number) : std::nullopt;
}

/// The problem with a combination of options; empty if there is none.
std::string contradiction(const QCommandLineParser& parser, const Options& options) {
    const bool listens = parser.isSet(options.listen);
    const bool hasMessage = !parser.positionalArguments().isEmpty();
    if (listens && hasMessage) {
        return "--listen sends nothing: leave MESSAGE out";
    }
    if (!listens && !hasMessage) {
        return "MESSAGE is missing";
    }
    if (listens &&
        (parser.isSet(options.wait) || parser.isSet(options.byName) || parser.isSet(options.sub))) {
        return "--wait, --by-name and --sub are for sending, not for --listen";
    }
    if (parser.isSet(options.byName) && (parser.isSet(options.component) || parser.isSet(options.sub))) {
        return "--by-name has its own component: leave --component and --sub out";
    }
    if (!listens && parser.isSet(options.count)) {
        return "--count is for --listen";
    }
    if (!listens && parser.isSet(options.timeout) && !parser.isSet(options.wait)) {
        return "--timeout is for --wait and --listen";
    }
    return {};
}

std::variant<Request, Notice> requestFrom(const QCommandLineParser& parser, const Options& options) {
    Request request;
    if (parser.isSet(options.timeout)) {
        const std::optional<int> ms = numberFrom(parser.value(options.timeout), 0);
        if (!ms) {
            return misuse("--timeout is a whole number of milliseconds");
        }
        request.timeout = std::chrono::milliseconds(*ms);
    } else if (parser.isSet(options.wait)) {
        request.timeout = std::chrono::milliseconds(5000);
    }
    if (parser.isSet(options.count)) {
        request.count = numberFrom(parser.value(options.count), 1);
        if (!request.count) {
            return misuse("--count is a whole number above 0");
        }
    }
    for (const QString& message : parser.positionalArguments()) {
        request.messages.push_back(message.toStdString());
    }
    request.byName = parser.isSet(options.byName);
    request.listen = parser.isSet(options.listen);
    if (parser.isSet(options.component)) {
        request.component = parser.value(options.component).toStdString();
    } else if (!request.listen) {
        request.component = defaultComponent;
    }
    request.subComponent = parser.value(options.sub).toStdString();
    if (parser.isSet(options.wait)) {
        request.waitFor = parser.value(options.wait).toStdString();
    }
    request.dataFolder = parser.value(options.data).toStdString();
    return request;
}

} // namespace

std::variant<Request, Notice> understand(const std::vector<std::string>& words) {
    const Options options;
    QCommandLineParser parser;
    parser.setApplicationDescription(QString::fromLatin1(description));
    parser.addOptions({options.wait, options.listen, options.timeout, options.count, options.component,
                       options.sub, options.byName, options.data, options.version, options.help});
    parser.addPositionalArgument(
        QStringLiteral("MESSAGE"),
        QStringLiteral("Identifier of a message to send. Several are sent in their order."),
        QStringLiteral("[MESSAGE...]"));
    QStringList arguments;
    for (const std::string& word : words) {
        arguments += QString::fromStdString(word);
    }
    if (!parser.parse(arguments)) {
        return misuse(parser.errorText().toStdString());
    }
    if (parser.isSet(options.help)) {
        return Notice{parser.helpText().toStdString() + exitCodes, exitDone};
    }
    if (parser.isSet(options.version)) {
        return Notice{std::string("tarnsend ") + ocuva::productVersion + "\n", exitDone};
    }
    const std::string wrong = contradiction(parser, options);
    return wrong.empty() ? requestFrom(parser, options) : misuse(wrong);
}

} // namespace tarnsend
