// Hides what the lists name, before it is painted. Runs in every frame before the page does, in a world of its own that
// the page cannot see. Most pages hold nothing that any list names; rows of bits tell that here, and the program is
// asked only about the rest. It answers while the page waits. The program puts its words where there are names between
// signs. They are a secret, the bits of domains, of keys and of how these begin, and the keys that are parts of attributes.
// They also say parts of addresses of pages that have to be asked about, whether each one has to be, and what is hidden everywhere.
(function () {
    'use strict';
    const kMostKeysAtOnce = 100;
    const kSteps = [1, 0x9E3779B1, 0x85EBCA6B, 0xC2B2AE3D, 0x27D4EB2F, 0x165667B1], kHashStart = 0x811C9DC5, kHashStep = 0x01000193;
    const kFirstLetter = 40, kSkippedLetter = 92;
    const kLongestStart = 20, kKeyStep = 4, kMostSeen = 20000, kMostRead = 4096, kLongestName = 1000;
    const kRush = 200, kFew = 50, kLongestRush = 250, kSamples = 8, kBusyPictures = 3;

    function hostOf(origin) {
        const found = /^https?:\/\/([^/:]+|\[[^\]]*\])/.exec(origin);
        return found ? found[1].replace(/\.$/, '') : '';
    }
    const ancestors = location.ancestorOrigins;
    const host = hostOf(location.origin) || hostOf(self.origin);
    const topHost = ancestors.length > 0 ? hostOf(ancestors[ancestors.length - 1]) : host;
    if (!host) return;

    // Six bits stand in a letter, so that no page has to decode them all.
    function mayHold(bits, hash) {
        const shift = Math.clz32(bits.length * 6 - 6);
        for (let at = 0; at < kSteps.length; ++at) {
            const bit = Math.imul(hash, kSteps[at]) >>> shift, place = Math.floor(bit / 6), letter = bits.charCodeAt(place);
            const six = (letter > kSkippedLetter ? letter - 1 : letter) - kFirstLetter;
            if (((six >>> (bit - place * 6)) & 1) === 0) return false;
        }
        return true;
    }

    // As the program hashes domains: from the end, in 64 bits.
    function domainMayBeNamed(bits, name) {
        const labels = name.split('.');
        for (let end = labels.length; end > 0; --end) {
            let hash = end === labels.length ? 0xCBF29CE484222325n : 0x9AE16A3B2F90404Fn;
            for (let first = end - 1; first >= 0; --first) {
                const text = labels[first] + (first < end - 1 ? '.' : '');
                for (let at = text.length - 1; at >= 0; --at)
                    hash = BigInt.asUintN(64, (hash ^ BigInt(text.charCodeAt(at))) * 0x100000001B3n);
                if (mayHold(bits, Number((hash ^ (hash >> 32n)) & 0xFFFFFFFFn) | 0)) return true;
            }
        }
        return false;
    }

    function addressOf(what) {
        return 'tessaview-hide:' + what + '&word=@word@&host=' + encodeURIComponent(host) + '&top=' +
            encodeURIComponent(topHost) + '&page=' + encodeURIComponent(location.href.slice(0, kMostRead));
    }
    function answerTo(request) {
        try { return JSON.parse(request.responseText); } catch (e) { return {}; }
    }
    function askWithoutWaiting(what, then) {
        const request = new XMLHttpRequest();
        request.onloadend = function () { then(answerTo(request)); };
        request.open('GET', addressOf(what));
        request.send();
    }
    // A page can forbid requests that it has to wait for. There what is to be hidden may be seen for a moment.
    function ask(what, then) {
        const request = new XMLHttpRequest();
        try {
            request.open('GET', addressOf(what), false);
            request.send();
        } catch (e) { return askWithoutWaiting(what, then); }
        then(answerTo(request));
    }

    // Fields of a form hide its properties when they are called like them. So these are asked for in another way; of an
    // id and a class, which takes longer so, only when they are no text.
    function getterOf(type, name) { return Object.getOwnPropertyDescriptor(type.prototype, name).get; }
    const idOf = getterOf(Element, 'id'), namesOf = getterOf(Element, 'className'), tagOf = getterOf(Element, 'localName');
    const firstOf = getterOf(Element, 'firstElementChild'), aroundOf = getterOf(Node, 'parentNode');
    const kindOf = getterOf(Node, 'nodeType'), attributeOf = Element.prototype.getAttribute;
    const findBelow = Element.prototype.querySelectorAll, findAll = Document.prototype.querySelectorAll;
    const imagesOf = getterOf(Document, 'images'), linksOf = getterOf(Document, 'links');
    const adopted = Object.getOwnPropertyDescriptor(Document.prototype, 'adoptedStyleSheets');
    // What came out of another frame is an element, but none of this frame's kind.
    function isElement(node) { return kindOf.call(node) === Node.ELEMENT_NODE; }

    // What was stopped leaves no empty box. The kinds are those that the program knows, in its order.
    const kKinds = { img: '0', input: '0', iframe: '1', frame: '1', object: '1 2 0', embed: '1 2 0', video: '3', audio: '3' };
    function sourceOf(element) {
        if (element.currentSrc || element.src || element.data) return element.currentSrc || element.src || element.data;
        const source = element.querySelector('source');
        return source ? source.src : '';
    }

    // What stood there before comes back, unless the page itself has changed it.
    function Override(name, value) {
        const before = new WeakMap();
        this.isOn = function (element) { return before.has(element); };
        this.put = function (element) {
            const style = element.style;
            if (!before.has(element)) before.set(element, [style.getPropertyValue(name), style.getPropertyPriority(name)]);
            style.setProperty(name, value, 'important');
        };
        this.takeBack = function (element) {
            const was = before.get(element), style = element.style;
            if (!was) return;
            before.delete(element);
            if (style.getPropertyValue(name) === value) style.setProperty(name, was[0], was[1]);
        };
    }
    // No page says that a picture is to be collapsed, so what it says itself is not taken for ours.
    const gone = new Override('display', 'none'), unseen = new Override('visibility', 'collapse');
    function collapse(element) {
        gone.put(element);
        unseen.takeBack(element);
    }
    // Once: the page may say something of it while the answer is on the way.
    function veil(element) {
        if (!unseen.isOn(element)) unseen.put(element);
    }
    function show(element) {
        gone.takeBack(element);
        unseen.takeBack(element);
    }

    // Nobody waits for the answer, and while one is on the way, the questions gather. So they do while nobody sees the
    // page. What they are about is by kinds and address, and so is what waits for the answer.
    const answers = new Map(), waiting = new Map();
    let unasked = [], asks = false;
    function questionOf(element, tag) {
        const kinds = kKinds[tag], source = kinds ? sourceOf(element) : '';
        return /^https?:/.test(source) ? kinds + '\n' + source : '';
    }
    function settle(question, stopped) {
        if (answers.size >= kMostSeen) answers.clear();
        answers.set(question, stopped);
        const elements = waiting.get(question);
        waiting.delete(question);
        // Its page may have given it another source by now.
        for (const each of elements.keys()) {
            const now = questionOf(each, tagOf.call(each));
            if (answers.get(now)) collapse(each);
            else if (!waiting.has(now)) show(each);
        }
    }
    function askBy(how, some, then) {
        const items = some.map(function (question) { return question.split('\n'); });
        how('stopped?items=' + encodeURIComponent(JSON.stringify(items)), function (answer) {
            some.forEach(function (question, at) { settle(question, Boolean(answer.stopped && answer.stopped[at])); });
            then();
        });
    }
    function mayAsk() { return unasked.length >= (document.hidden ? kMostKeysAtOnce : 1); }
    function askAboutStopped() {
        asks = mayAsk();
        if (asks) askBy(askWithoutWaiting, unasked.splice(0, kMostKeysAtOnce), askAboutStopped);
    }
    function askSoon() {
        if (asks || !mayAsk()) return;
        asks = true;
        Promise.resolve().then(askAboutStopped);
    }
    // Nearly all that fails while there are rules was stopped. So it is not painted until that is known.
    function veilUntilAnswered() {
        for (const [question, elements] of waiting)
            for (const [each, hasFailed] of elements)
                if (hasFailed && questionOf(each, tagOf.call(each)) === question) veil(each);
    }
    function collapseIfStopped(element, tag, hasFailed) {
        const question = questionOf(element, tag);
        if (!question) return;
        if (answers.has(question)) return answers.get(question) ? collapse(element) : show(element);
        if (hasFailed && !document.hidden) veil(element);
        if (!waiting.has(question)) {
            waiting.set(question, new Map());
            unasked.push(question);
        }
        waiting.get(question).set(element, hasFailed);
        askSoon();
    }
    function askBeforePrint() {
        while (unasked.length > 0) askBy(ask, unasked.splice(0, kMostKeysAtOnce), function () {});
    }
    document.addEventListener('error', function (event) {
        const of = event.target;
        if (!isElement(of)) return;
        const tag = tagOf.call(of), around = tag === 'source' ? aroundOf.call(of) : null;
        if (around && around.networkState === 3) collapseIfStopped(around, tagOf.call(around), true);
        else collapseIfStopped(of, tag, true);
    }, true);
    // A frame that was stopped loads a page of the engine's, which nobody can look into.
    document.addEventListener('load', function (event) {
        const of = event.target, tag = isElement(of) ? tagOf.call(of) : '';
        if ((tag === 'iframe' || tag === 'frame' || tag === 'embed') && !of.contentDocument) collapseIfStopped(of, tag, false);
        else show(of);
    }, true);

    // Pictures that a script has asked for may come into the page when they have failed already.
    function collapseFailed(picture) {
        if (picture.complete && picture.naturalWidth === 0 && picture.currentSrc) collapseIfStopped(picture, 'img', true);
    }

    const sheets = [];
    function put() {
        if (sheets.length === 0) return;
        const there = adopted.get.call(document);
        if (there[sheets.length - 1] === sheets[sheets.length - 1]) return;
        const others = Array.from(there).filter(function (sheet) { return !sheets.includes(sheet); });
        adopted.set.call(document, sheets.concat(others));
    }
    function hide(text) {
        if (!text) return;
        const sheet = new CSSStyleSheet();
        sheet.replaceSync(text);
        sheets.push(sheet);
        put();
    }

    const keyBits = '@keys@', startBits = '@starts@', parts = @parts@;
    let site = {};
    function beOn(answer) {
        site = answer;
        hide(site.css);
        if (site.generic) hide(typeof site.always === 'string' ? site.always : '@always@');
    }

    // Names that were looked at cost nothing more.
    function noteSeen(seen, text) {
        // Else these would stay in memory.
        if (text.length > kMostRead) return;
        if (seen.size >= kMostSeen) seen.clear();
        seen.add(text);
    }
    const seenIds = new Set(), seenValues = new Set(), seenNames = new Set(), seenLinks = new Set(), seenKeys = new Set();
    let found = [];
    function note(key) {
        if (seenKeys.has(key)) return;
        noteSeen(seenKeys, key);
        found.push(key);
    }
    function hashFrom(hash, text, from, to) {
        for (let at = from; at < to; ++at) hash = Math.imul(hash ^ text.charCodeAt(at), kHashStep);
        return hash;
    }
    const kId = hashFrom(kHashStart, '#', 0, 1), kName = hashFrom(kHashStart, '.', 0, 1);
    function isKey(hash) { return mayHold(keyBits, hash || 1); }
    // Nine names in ten begin as no key does.
    function isStart(hash) { return mayHold(startBits, hash || 1); }
    function inBytes(text) {
        if (!/[^\x00-\x7f]/.test(text)) return text;
        try { return unescape(encodeURIComponent(text)); } catch (e) { return ''; }
    }
    // Rules name some by how their values begin, or what these hold. Parts are looked for in all new values at once.
    function Attribute(name) {
        const start = hashFrom(kHashStart, name + '^', 0, name.length + 1);
        this.parts = parts.filter(function (key) { return key.startsWith(name + '*'); });
        this.values = [];
        this.seenStarts = new Set();
        this.lookAtStart = function (value) {
            let hash = start;
            for (let end = kKeyStep; end <= value.length; end += kKeyStep) {
                hash = hashFrom(hash, value, end - kKeyStep, end);
                if (end === kKeyStep && !isStart(hash)) return;
                if (isKey(hash)) note(name + '^' + value.slice(0, end));
            }
        };
        this.look = function (value) {
            const beginning = value.slice(0, kLongestStart);
            if (!this.seenStarts.has(beginning)) {
                noteSeen(this.seenStarts, beginning);
                this.lookAtStart(beginning);
            }
            if (this.parts.length > 0) this.values.push(value.slice(0, kMostRead));
        };
        this.findParts = function () {
            if (this.values.length === 0) return;
            const all = this.values.join('\n');
            this.values = [];
            for (const key of this.parts)
                if (all.includes(key.slice(name.length + 1))) note(key);
        };
    }
    const kOtherBlanks = /[\t\n\f\r]/;
    const ids = new Attribute('id'), classes = new Attribute('class'), links = new Attribute('href');
    function lookAtName(start, sign, name) {
        if (name.length > kLongestName) return;
        const bytes = inBytes(name), few = Math.min(bytes.length, kKeyStep), hash = hashFrom(start, bytes, 0, few);
        if (isStart(hash) && isKey(hashFrom(hash, bytes, few, bytes.length))) note(sign + name);
    }
    function lookAtNames(names) {
        noteSeen(seenValues, names);
        classes.look(names);
        for (const each of kOtherBlanks.test(names) ? names.split(/\s+/) : names.split(' ')) {
            if (!each || seenNames.has(each)) continue;
            noteSeen(seenNames, each);
            lookAtName(kName, '.', each);
        }
    }
    function lookAtId(id) {
        noteSeen(seenIds, id);
        ids.look(id);
        lookAtName(kId, '#', id);
    }
    function lookAtTarget(target) {
        noteSeen(seenLinks, target);
        links.look(target);
    }
    // Nearly all values have been seen, so no more than what tells that is done for most elements.
    function lookAtClass(element) {
        let names = element.className;
        if (typeof names !== 'string') names = namesOf.call(element);
        if (names && !seenValues.has(names)) lookAtNames(names);
    }
    function lookAtIdOf(element) {
        let id = element.id;
        if (typeof id !== 'string') id = idOf.call(element);
        if (id && !seenIds.has(id)) lookAtId(id);
    }
    function lookAtLink(element) {
        const target = attributeOf.call(element, 'href');
        if (target && !seenLinks.has(target)) lookAtTarget(target);
    }
    function lookAt(element) {
        const tag = tagOf.call(element);
        if (tag === 'img') collapseFailed(element);
        if (!site.generic) return;
        look(element);
        if (tag === 'a') lookAtLink(element);
    }
    function lookAtAttribute(element, name) {
        if (name === 'class') lookAtClass(element);
        else if (name === 'id') lookAtIdOf(element);
        else if (tagOf.call(element) === 'a') lookAtLink(element);
    }
    function each(list, act) {
        for (let at = 0, end = list.length; at < end; ++at) act(list[at]);
        return list;
    }
    function look(element) {
        lookAtClass(element);
        lookAtIdOf(element);
    }
    function lookBelow(element) {
        each(findBelow.call(element, 'img'), collapseFailed);
        if (!site.generic) return;
        each(findBelow.call(element, 'a[href]'), lookAtLink);
        each(findBelow.call(element, '[class]'), lookAtClass);
        each(findBelow.call(element, '[id]'), lookAtIdOf);
    }
    // The engine keeps its own lists of pictures and links. Those with a class or an id are the answer.
    function lookAtAll() {
        each(imagesOf.call(document), collapseFailed);
        if (!site.generic) return [];
        each(linksOf.call(document), lookAtLink);
        each(findAll.call(document, '[id]'), lookAtIdOf);
        return each(findAll.call(document, '[class]'), lookAtClass);
    }
    function askAboutFound() {
        ids.findParts();
        classes.findParts();
        links.findParts();
        while (found.length > 0) {
            const some = found.splice(0, kMostKeysAtOnce);
            ask('keys?keys=' + encodeURIComponent(JSON.stringify(some)), function (answer) { hide(answer.css); });
        }
        // A page that puts sheets of its own there takes ours away.
        put();
    }

    let looked = 0, samples = [];
    // Whether the page has many elements, and others than when it was last looked at so.
    function lookAround() {
        const all = lookAtAll(), before = samples;
        askAboutFound();
        const more = all.length - looked;
        looked = all.length;
        samples = [];
        for (let at = 1; rush && at < kSamples; ++at) samples.push(all[Math.floor(looked * at / kSamples)]);
        return more >= kFew || (looked >= kFew && samples.some(function (each, at) { return each !== before[at]; }));
    }

    // Pages make thousands of elements at once, so whatever has nothing inside is looked at without any more ado.
    function lookAtRecords(records) {
        const full = new Set();
        for (let at = 0, end = records.length; at < end; ++at) {
            const record = records[at], attribute = record.attributeName;
            if (attribute !== null) { lookAtAttribute(record.target, attribute); continue; }
            const nodes = record.addedNodes;
            for (let index = 0, most = nodes.length; index < most; ++index) {
                const node = nodes[index];
                if (!isElement(node)) continue;
                if (firstOf.call(node)) full.add(node);
                else lookAt(node);
            }
        }
        // What came with what it stands in is looked at with that.
        for (const node of full) {
            if (full.has(aroundOf.call(node))) continue;
            lookAt(node);
            lookBelow(node);
        }
        askAboutFound();
    }

    // To be told of each element costs more than to look at all of them before each picture. So while a page makes very
    // many, it is watched only from that look until the picture. A task never begins between these two, so the watch
    // ends in one. Most pages do so for a picture or two while they load; only what goes on is not watched again at once.
    let rush = 0, picture = 0, busy = 0;
    const observer = new MutationObserver(function (records) {
        const many = records.length >= kRush && records.length * 4 >= looked;
        if (many) lookAround();
        else lookAtRecords(records);
        if (many && !rush) beginRush();
    });
    function watch() {
        const what = { childList: true, subtree: true };
        if (site.generic) what.attributeFilter = ['class', 'id', 'href'];
        observer.observe(document, what);
    }
    // A timer would come too late.
    let after = null;
    function beginRush() {
        rush = setTimeout(endRush, kLongestRush);
        if (!after) {
            after = new MessageChannel();
            after.port1.onmessage = pause;
        }
        after.port2.postMessage(0);
    }
    function pause() {
        if (!rush) return;
        observer.disconnect();
        cancelAnimationFrame(picture);
        picture = requestAnimationFrame(beforePicture);
    }
    function beforePicture() {
        if (!rush) return;
        watch();
        const goesOn = lookAround();
        clearTimeout(rush);
        rush = 0;
        busy = goesOn ? busy + 1 : 0;
        if (busy >= kBusyPictures || (looked < kFew && document.readyState === 'loading')) beginRush();
        else samples = [];
    }
    function endRush() {
        clearTimeout(rush);
        rush = 0;
        watch();
        lookAround();
    }

    // Pages about which rules say something by more than their domain.
    const addresses = @addresses@;
    function addressMayBeNamed() {
        const address = (location.href.slice(0, kMostRead) + ' https://' + host + '/').toLowerCase(), plain = unescape(address);
        return addresses.some(function (each) { return address.includes(each) || plain.includes(each); });
    }
    const domainBits = '@domains@';
    const named = @all@ || domainMayBeNamed(domainBits, host) || addressMayBeNamed() ||
        (topHost !== host && domainMayBeNamed(domainBits, topHost));
    let begun = false;
    if (named)
        ask('site?', function (answer) {
            beOn(answer);
            if (begun) endRush();
        });
    else beOn({ generic: true });
    begun = true;
    // What comes before a page that nobody sees is there is looked at together.
    let watches = false;
    function beginWatch() {
        if (watches) return;
        watches = true;
        watch();
        lookAround();
        if (!document.hidden) beginRush();
    }
    if (document.hidden) document.addEventListener('DOMContentLoaded', beginWatch);
    else beginWatch();
    document.addEventListener('visibilitychange', function () {
        if (document.hidden) return;
        beginWatch();
        veilUntilAnswered();
        askSoon();
    });
    // A page that nobody sees can be printed.
    addEventListener('beforeprint', function () {
        lookAround();
        askBeforePrint();
    });
})();
