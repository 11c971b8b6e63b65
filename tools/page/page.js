// What a grammar as a page does: makes pictures when they come into view, searches, and opens what
// a link leads to. All texts are in the page already, readable without this.
"use strict";

(() => {
  const rules = [...document.querySelectorAll(".rules > li")];
  const phrases = document.querySelector(".rules").dataset.phrases.split("|");
  const form = document.getElementById("search");
  const query = document.getElementById("query");
  const field = document.getElementById("field");
  const show = document.getElementById("show");
  const found = document.getElementById("found");
  const parts = [document.getElementById("overview"), document.getElementById("labels")];

  // ---- Pictures ---------------------------------------------------------------------------------

  // "~" and a letter stand for a phrase, the first for "A"; "~~" for "~".
  const unpack = (packed) =>
    packed.replace(/~(.)/gs, (all, sign) => (sign === "~" ? sign : phrases[sign.charCodeAt(0) - 65]));

  // What is wider than its place can be scrolled by the keyboard, too.
  const boxes = new Set();
  const letScroll = (box) => {
    boxes.add(box);
    if (box.scrollWidth > box.clientWidth) {
      box.tabIndex = 0;
    } else {
      box.removeAttribute("tabindex");
    }
  };
  addEventListener("resize", () => boxes.forEach(letScroll));

  const makePicture = (box) => {
    if (box.dataset.svg !== undefined) {
      box.innerHTML = unpack(box.dataset.svg);
      delete box.dataset.svg;
    }
  };

  // Widths are asked for when all pictures are there: each question may lay the page out anew.
  const watcher = new IntersectionObserver(
    (entries) => {
      const pictures = entries
        .filter((entry) => entry.isIntersecting)
        .flatMap((entry) => [...entry.target.querySelectorAll(".picture")]);
      pictures.forEach(makePicture);
      pictures.forEach(letScroll);
      pictures.forEach((picture) => watcher.unobserve(picture.closest("li")));
    },
    { rootMargin: "100% 0px" },
  );
  rules.forEach((rule) => watcher.observe(rule));
  document.querySelectorAll(".charts figure").forEach(letScroll);

  addEventListener("beforeprint", () => {
    for (const rule of rules.filter((each) => !each.hidden)) {
      rule.querySelectorAll(".picture").forEach(makePicture);
    }
  });

  // Two examples may have the same derivation, whose identifiers would then be twice on the page.
  let derivations = 0;
  const makeDerivation = (details) => {
    const box = details.querySelector("div");
    if (details.open && box.dataset.svg !== undefined) {
      const place = `-${++derivations}`;
      box.dataset.svg = unpack(box.dataset.svg).replace(/\bp[0-9a-f]{16}/g, (id) => id + place);
      box.innerHTML = box.dataset.svg;
      delete box.dataset.svg;
      letScroll(box);
    }
  };
  document.addEventListener(
    "toggle",
    (event) => event.target.matches(".derivation") && makeDerivation(event.target),
    true,
  );

  // ---- Search -----------------------------------------------------------------------------------

  const namesOf = (rule, kind) => (rule.dataset[kind] ?? "").toLowerCase().split(" ");
  const texts = new Map(); // of the rules, once they are searched

  const textOf = (rule) => {
    if (!texts.has(rule)) {
      texts.set(rule, rule.textContent.toLowerCase());
    }
    return texts.get(rule);
  };

  // A name that is there is meant as it is; otherwise it is the beginning of names.
  const namePredicate = (kind, word) => {
    const isName = rules.some((rule) => namesOf(rule, kind).includes(word));
    return isName
      ? (rule) => namesOf(rule, kind).includes(word)
      : (rule) => namesOf(rule, kind).some((name) => name.startsWith(word));
  };

  const predicates = () => {
    const words = query.value.toLowerCase().split(/\s+/).filter(Boolean);
    return field.value === "text"
      ? words.map((word) => (rule) => textOf(rule).includes(word))
      : words.map((word) => namePredicate(field.value, word));
  };

  const search = () => {
    const wanted = predicates();
    if (show.value) {
      wanted.push((rule) => namesOf(rule, "marks").includes(show.value));
    }
    let count = 0;
    for (const rule of rules) {
      rule.hidden = !wanted.every((isWanted) => isWanted(rule));
      count += rule.hidden ? 0 : 1;
    }
    // What is found stands right below the search.
    for (const part of parts) {
      part.hidden = wanted.length > 0;
    }
    found.textContent = `${count} of ${rules.length} rules`;
  };

  // Large grammars wait until the reader pauses.
  let pause;
  query.addEventListener("input", () => {
    clearTimeout(pause);
    pause = setTimeout(search, rules.length > 1000 ? 200 : 0);
  });
  field.addEventListener("change", search);
  show.addEventListener("change", search);
  form.addEventListener("submit", (event) => event.preventDefault());
  form.hidden = false;
  search();

  // ---- Links ------------------------------------------------------------------------------------

  // What the search hides is shown again, and a closed label is opened.
  const follow = () => {
    const target = document.getElementById(location.hash.slice(1));
    const rule = target?.closest(".rules > li");
    if (rule?.hidden) {
      form.reset();
      search();
    }
    for (const part of parts.filter((each) => each.contains(target))) {
      part.hidden = false;
    }
    if (target?.matches("details")) {
      target.open = true;
      target.querySelector("summary").focus();
    }
    // Rules before it may take another height once they are laid out, so it is sought again then.
    target?.scrollIntoView();
    requestAnimationFrame(() => requestAnimationFrame(() => target?.scrollIntoView()));
  };
  // A link to where the address already leads changes nothing of it.
  document.addEventListener("click", (event) => {
    if (event.target.closest('a[href^="#"]')) {
      setTimeout(follow);
    }
  });
  addEventListener("popstate", follow);
  follow();
})();
