-- The two manuals point at each other as Markdown files.
function Link(link)
  link.target = link.target:gsub("^(%l%l)%.md$", "%1.html")
  return link
end
