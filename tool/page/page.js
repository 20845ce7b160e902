"use strict";
// Interaction with the picture: highlighting, pinning, filtering, zoom and pan. The page works
// without it: the document contains everything that it shows.
(() => {
  const svg = document.querySelector("svg.layer");
  const aside = document.querySelector("aside");
  const filter = document.getElementById("filter");
  const home = svg.dataset.home.split(" ").map(Number);
  const all = (selector, within = document) => [...within.querySelectorAll(selector)];
  const number = (element, name) => Number(element.dataset[name] ?? -1);

  const roads = all("path[data-from]", svg).map((element) => ({
    element, from: number(element, "from"), to: number(element, "to"), by: number(element, "by"),
  }));
  const onMaps = all("[data-map], [data-arrow]", svg);
  const articles = all("article[data-map]");
  const buttons = all("#maps button");

  let view = home;
  let pinned = -1;
  let shown = -1;
  let drag = null;
  let lastInput = 0;

  // Highlights a map, its roads, their arrows and the maps at the other ends, and shows its data.
  function show(map) {
    shown = map;
    const near = new Set([map]);
    const arrows = new Set();
    for (const road of roads) {
      const lit = map >= 0 && (road.from === map || road.to === map);
      road.element.classList.toggle("lit", lit);
      if (lit) near.add(road.from).add(road.to), arrows.add(road.by);
    }
    near.delete(-1);
    arrows.delete(-1);
    for (const element of onMaps) {
      const lit = near.has(number(element, "map")) || arrows.has(number(element, "arrow"));
      element.classList.toggle("lit", lit);
    }
    svg.classList.toggle("some-lit", map >= 0);
    for (const article of articles) article.classList.toggle("shown", number(article, "map") === map);
    document.body.classList.toggle("has-shown", map >= 0);
  }

  function pin(map) {
    pinned = map;
    for (const element of onMaps) {
      element.classList.toggle("pinned", map >= 0 && number(element, "map") === map);
    }
    for (const button of buttons) {
      button.setAttribute("aria-pressed", String(number(button, "map") === map));
    }
    show(map);
    remember();
  }

  function setView(next) {
    const width = Math.min(Math.max(next[2], home[2] / 16), home[2] * 2);
    const height = width * home[3] / home[2];
    view = [next[0] + (next[2] - width) / 2, next[1] + (next[3] - height) / 2, width, height];
    svg.setAttribute("viewBox", view.join(" "));
    remember();
  }

  // Zooms so that `at`, a point of the picture, stays where it is.
  function zoom(factor, at = { x: view[0] + view[2] / 2, y: view[1] + view[3] / 2 }) {
    const least = home[2] / 16 / view[2];
    const scale = Math.min(Math.max(1 / factor, least), home[2] * 2 / view[2]);
    setView([at.x - (at.x - view[0]) * scale, at.y - (at.y - view[1]) * scale,
      view[2] * scale, view[3] * scale]);
  }

  const pan = (right, down) => setView([view[0] + right, view[1] + down, view[2], view[3]]);

  function pointAt(event) {
    return new DOMPoint(event.clientX, event.clientY).matrixTransform(svg.getScreenCTM().inverse());
  }

  function goTo(element) {
    const box = element.getBBox();
    const width = Math.min(view[2], home[2] / 3);
    const height = width * home[3] / home[2];
    setView([box.x + box.width / 2 - width / 2, box.y + box.height / 2 - height / 2, width, height]);
  }

  function flash(element) {
    for (const old of all(".flash")) old.classList.remove("flash");
    element.classList.add("flash");
  }

  const inPicture = (map, arrow) =>
    document.getElementById(`map-${map}`) ?? document.getElementById(`arrow-${arrow}`);

  // Moves to the badge, tile or arrow of a finding or warning.
  function jump(link) {
    const place = document.getElementById(`at-${link.dataset.mark}`) ??
      inPicture(number(link, "map"), number(link, "arrow"));
    if (!place) return;
    pin(number(link, "map"));
    goTo(place);
    flash(place);
  }

  // Scrolls from a badge to its line in the list.
  function showLine(badge) {
    const line = document.getElementById(`found-${badge.dataset.mark}`);
    line.querySelector("a").focus();
    line.scrollIntoView({ block: "center" });
    flash(line);
  }

  function applyFilter() {
    const wanted = filter.value.trim().toLocaleLowerCase();
    for (const button of buttons) {
      const map = number(button, "map");
      const fits = button.textContent.toLocaleLowerCase().includes(wanted);
      button.parentElement.hidden = !fits;
      for (const element of onMaps) {
        if (number(element, "map") === map) element.classList.toggle("filtered-out", !fits);
      }
    }
    remember();
  }

  // Stores the state that survives a reload. Browsers limit how often this is allowed.
  let storing = 0;
  function store() {
    clearTimeout(storing);
    storing = 0;
    history.replaceState({ view, pinned, shown, filter: filter.value, scroll: aside.scrollTop,
      focus: document.activeElement?.id ?? "" }, "");
  }
  function remember() {
    if (storing === 0) storing = setTimeout(store, 150);
  }
  function restore(state) {
    if (!state) return;
    filter.value = state.filter;
    applyFilter();
    setView(state.view);
    pin(state.pinned);
    show(state.shown);
    aside.scrollTop = state.scroll;
    document.getElementById(state.focus)?.focus({ preventScroll: true });
  }

  const mapOf = (target) => target.closest?.("[data-map]:not(article):not(a)");

  document.addEventListener("pointerover", (event) => {
    const element = mapOf(event.target);
    if (!drag) show(element ? number(element, "map") : pinned);
  });
  document.addEventListener("focusin", (event) => {
    const element = mapOf(event.target);
    if (element) show(number(element, "map"));
  });
  document.addEventListener("click", (event) => {
    const link = event.target.closest("a[data-mark]");
    const element = mapOf(event.target);
    if (link) {
      event.preventDefault();
      if (svg.contains(link)) pin(number(link, "map")), showLine(link);
      else jump(link);
    } else if (element) {
      const map = number(element, "map");
      pin(map === pinned ? -1 : map);
    } else if (svg.contains(event.target)) {
      pin(-1);
    }
  });

  svg.addEventListener("wheel", (event) => {
    event.preventDefault();
    zoom(Math.pow(1.2, -Math.sign(event.deltaY)), pointAt(event));
  }, { passive: false });
  svg.addEventListener("pointerdown", (event) => {
    if (event.button === 0) drag = { x: event.clientX, y: event.clientY, moved: false };
  });
  svg.addEventListener("pointermove", (event) => {
    if (event.buttons === 0) drag = null;  // released outside the picture
    if (!drag) return;
    const right = event.clientX - drag.x;
    const down = event.clientY - drag.y;
    if (!drag.moved && Math.hypot(right, down) < 4) return;
    drag = { x: event.clientX, y: event.clientY, moved: true };
    svg.setPointerCapture(event.pointerId);
    const scale = svg.getScreenCTM().a;
    pan(-right / scale, -down / scale);
  });
  for (const end of ["pointerup", "pointercancel"]) {
    svg.addEventListener(end, () => {
      if (end === "pointerup" && drag?.moved) addEventListener("click", (event) => event.stopPropagation(),
        { capture: true, once: true });
      setTimeout(() => { drag = null; });
    });
  }

  const keys = {
    "+": () => zoom(1.25), "-": () => zoom(0.8), 0: () => setView(home), Escape: () => pin(-1),
    ArrowLeft: () => pan(-view[2] / 12, 0), ArrowRight: () => pan(view[2] / 12, 0),
    ArrowUp: () => pan(0, -view[3] / 12), ArrowDown: () => pan(0, view[3] / 12),
  };
  document.addEventListener("keydown", (event) => {
    const tile = event.target.closest?.(".tile");
    if (event.target === filter || event.ctrlKey || event.altKey || event.metaKey) return;
    if (tile && (event.key === "Enter" || event.key === " ")) {
      event.preventDefault();
      pin(number(tile, "map") === pinned ? -1 : number(tile, "map"));
    } else if (keys[event.key] && (event.key === "Escape" || !aside.contains(event.target))) {
      event.preventDefault();
      keys[event.key]();
    }
  });

  filter.addEventListener("input", applyFilter);
  document.getElementById("nearer").addEventListener("click", () => zoom(1.25));
  document.getElementById("farther").addEventListener("click", () => zoom(0.8));
  document.getElementById("whole").addEventListener("click", () => setView(home));
  addEventListener("beforeprint", () => svg.setAttribute("viewBox", svg.dataset.whole));
  addEventListener("afterprint", () => setView(view));

  document.body.classList.add("live");
  setView(home);
  restore(history.state);

  // Reloads the page to show a redrawn picture, but never while the user works with it.
  const interval = Number(document.documentElement.dataset.reload ?? 0);
  if (interval > 0) {
    for (const input of ["pointermove", "pointerdown", "keydown", "wheel"]) {
      addEventListener(input, () => { lastInput = performance.now(); }, { passive: true });
    }
    setInterval(() => {
      const idle = performance.now() - lastInput > interval;
      if (document.hidden || drag || !idle) return;
      store();
      location.reload();
    }, interval);
  }
})();
